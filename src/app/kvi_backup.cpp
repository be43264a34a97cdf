// Copies the database of a program folder, or restores a copy, without a window:
// kvi-backup FOLDER [--restore FILE | --list].

#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "ConsoleProgram.h"
#include "base/RunTimeError.h"
#include "frame/INI_SUBS.h"
#include "platform/Clock.h"
#include "platform/IniFile.h"
#include "store/BackUp.h"
#include "store/BackUpFiles.h"
#include "store/OpenInventoryDatabase.h"
#include "store/Restore.h"

namespace {

namespace fs = std::filesystem;

constexpr int kPathNotFound = 76;

constexpr const char* kUsage = "Usage: kvi-backup FOLDER [--restore FILE | --list]\n";
constexpr const char* kHelp =
    "Copies the database of the program folder FOLDER into the folder \"backups\" beside it, "
    "while\n"
    "desks are at work. Of the copies made by this command those of the last 14 days stay, and "
    "the\n"
    "first of each of the last 12 months.\n"
    "  --restore FILE  puts the content of a copy in the place of the database's, which is copied\n"
    "                  first; desks at work go on with the restored data\n"
    "  --list          lists the copies, the newest first\n";

struct Arguments {
  std::string folder;
  std::optional<std::string> restore;
  bool list = false;
};

Arguments Read(int argc, char** argv) {
  Arguments arguments;
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    if (argument == "--list") {
      arguments.list = true;
    } else if (argument == "--restore") {
      if (++i == argc) throw kvi::BadArgument{"--restore needs a file."};
      arguments.restore = argv[i];
    } else if (argument.starts_with("-")) {
      throw kvi::BadArgument{"Unknown option " + argument + "."};
    } else if (!arguments.folder.empty()) {
      throw kvi::BadArgument{"There can be one folder only."};
    } else {
      arguments.folder = argument;
    }
  }
  if (arguments.folder.empty()) throw kvi::BadArgument{"The folder is missing."};
  if (arguments.restore && arguments.list)
    throw kvi::BadArgument{"Only one of --restore and --list can be."};
  return arguments;
}

std::string DatabaseOf(const std::string& folder) {
  const kvi::IniFile suite(folder + "/TARNWK.INI");
  if (!suite.HasSection(kvi::kSuiteSection))
    throw kvi::RunTimeError(kPathNotFound,
                            folder + " is no program folder: TARNWK.INI is missing.");
  const std::string place = kvi::ClipToNul(suite.Read(kvi::kSuiteSection, "DatabasePath", ""));
  return (fs::path(place.empty() ? folder : place) / kvi::kDatabaseFile).string();
}

void List(const std::string& database) {
  for (const kvi::BackUpFile& file : kvi::BackUpsIn(kvi::BackUpFolder(database)))
    std::printf("%s  %s\n", kvi::IsoText(file.Made).c_str(), file.Path.c_str());
}

void Run(const Arguments& arguments) {
  const std::string path = DatabaseOf(arguments.folder);
  if (arguments.list) return List(path);
  if (arguments.restore) kvi::RequireInventoryFile(*arguments.restore);
  auto database = kvi::jet::Database::Open(path, false);
  const kvi::Date now = kvi::SystemClock().Now();
  const fs::path copy = kvi::MakeBackUp(
      database, now, arguments.restore ? "before restoring a copy" : kvi::kScheduledBackUp);
  std::printf("copied to %s\n", copy.c_str());
  if (!arguments.restore) return kvi::RemoveOldBackUps(copy.parent_path(), now);
  database.ReplaceContentWith(*arguments.restore);
  std::printf("restored %s\n", arguments.restore->c_str());
}

}  // namespace

int main(int argc, char** argv) {
  return kvi::RunConsoleProgram({"kvi-backup", kUsage, kHelp}, argc, argv, [&] {
    Run(Read(argc, argv));
    return 0;
  });
}
