#include "store/SetUpFolder.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "base/RunTimeError.h"
#include "base/TakeName.h"
#include "frame/INI_SUBS.h"
#include "jet/Server.h"
#include "platform/IniFile.h"
#include "store/OpenInventoryDatabase.h"
#include "store/Schema.h"

namespace kvi {
namespace {

namespace fs = std::filesystem;

constexpr int kPathFileAccess = 75, kFileNotFound = 53;
constexpr const char* kOwnFile = "KVI.INI";
constexpr const char* kSuiteFile = "TARNWK.INI";
constexpr const char* kSpreadsheetPrograms[] = {"localc", "libreoffice", "gnumeric", "xdg-open"};

[[noreturn]] void RaiseFor(const fs::path& path, const std::error_code& error) {
  throw RunTimeError(kPathFileAccess, path.string() + ": " + error.message());
}

// A dead link counts as standing: it is somebody's, and writing would go through it.
bool Stands(const fs::path& path) {
  std::error_code ignored;
  return fs::exists(fs::symlink_status(path, ignored));
}

void MakeFolder(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) RaiseFor(folder, error);
  if (::access(folder.c_str(), W_OK | X_OK) != 0)
    RaiseFor(folder, {errno, std::generic_category()});
}

void RemoveDatabase(const fs::path& path) {
  std::error_code ignored;
  fs::remove(path, ignored);
  fs::remove(path.string() + "-journal", ignored);
}

void MakeDatabase(const fs::path& path, const std::function<void(jet::Database&)>& fill) {
  const fs::path unfinished = path.string() + ".new";
  RemoveDatabase(unfinished);
  try {
    jet::Database database = CreateInventoryDatabase(unfinished.string());
    if (fill) fill(database);
    database.Close();
    // (Where another set-up was quicker, its database stands.)
    static_cast<void>(TakeName(unfinished, path));
    RemoveDatabase(unfinished);
  } catch (...) {
    RemoveDatabase(unfinished);
    throw;
  }
}

// The daily text export copies this file; what stands in it does not matter.
void MakeMasterText(const fs::path& path) {
  MakeFolder(path.parent_path());
  std::ofstream file(path, std::ios::app);
  if (!file) RaiseFor(path, {errno, std::generic_category()});
}

void MakeOwnSettings(const fs::path& path, const std::string& spreadsheetProgram) {
  auto keys = DefaultSettings(path.parent_path().string());
  for (auto& [key, text] : keys)
    if (key == "SpreadsheetExePath") text = spreadsheetProgram;
  IniFile(path).Write(kOwnSection, keys);
}

// A file that is none of ours is refused before a desk is bound to it. (One of the older program is
// looked into when it is converted.)
void CheckStockroom(const fs::path& path) {
  if (jet::IsJetFile(path)) return;
  jet::Database::Open(path.string(), false)
      .OpenRecordset("SELECT * FROM [" + Schema().front().Name + "] WHERE 0 = 1;");
}

// The files of one folder, each made unless it stands there.
class SetUp {
 public:
  explicit SetUp(const fs::path& folder) : home_(fs::absolute(folder).lexically_normal()) {
    MakeFolder(home_);
  }

  void Make(const fs::path& name, const std::function<void(const fs::path&)>& make) {
    const fs::path path = home_ / name;
    const bool stands = Stands(path);
    if (!stands) make(path);
    files_.push_back({path, !stands});
  }
  // The suite's file marks the folder. What a kill behind it leaves out, a start makes by itself.
  std::vector<SetUpFile> MakeSettings(const std::string& spreadsheetProgram,
                                      const std::string& databaseFolder) {
    Make(fs::path("files") / "master.txt", MakeMasterText);
    Make(kSuiteFile, [&](const fs::path& path) {
      IniFile(path).Write(
          kSuiteSection,
          {{"DatabasePath", databaseFolder}, {"BrowserPath", ""}, {"ColorScheme", ""}});
    });
    Make(kOwnFile, [&](const fs::path& path) { MakeOwnSettings(path, spreadsheetProgram); });
    return std::move(files_);
  }

 private:
  const fs::path home_;
  std::vector<SetUpFile> files_;
};

}  // namespace

std::vector<SetUpFile> SetUpFolder(const fs::path& folder, const std::string& spreadsheetProgram,
                                   const std::function<void(jet::Database&)>& fill) {
  SetUp setUp(folder);
  setUp.Make(kDatabaseFile, [&](const fs::path& path) { MakeDatabase(path, fill); });
  return setUp.MakeSettings(spreadsheetProgram, "");
}

std::vector<SetUpFile> SetUpDesk(const fs::path& folder, const std::string& spreadsheetProgram,
                                 const fs::path& databaseFolder) {
  const fs::path place = fs::absolute(databaseFolder).lexically_normal();
  if (!Stands(place / kDatabaseFile))
    throw RunTimeError(kFileNotFound,
                       "There is no " + std::string(kDatabaseFile) + " in " + place.string() + ".");
  CheckStockroom(place / kDatabaseFile);
  return SetUp(folder).MakeSettings(spreadsheetProgram, place.string());
}

std::vector<SetUpFile> SetUpServerDesk(const fs::path& folder,
                                       const std::string& spreadsheetProgram,
                                       const std::string& conninfo) {
  SetUp setUp(folder);
  setUp.Make(kDatabaseFile, [&](const fs::path& path) {
    std::ofstream file(path);
    file << jet::kServerFileMark << "\n" << conninfo << "\n";
    if (!file.flush()) RaiseFor(path, {errno, std::generic_category()});
  });
  return setUp.MakeSettings(spreadsheetProgram, "");
}

bool IsNewFolder(const fs::path& folder) {
  return !Stands(folder / kOwnFile) && !Stands(folder / kSuiteFile);
}

std::string FindSpreadsheetProgram(const std::string& searchPath) {
  for (const char* program : kSpreadsheetPrograms) {
    std::istringstream folders(searchPath);
    for (std::string folder; std::getline(folders, folder, ':');) {
      const fs::path path = fs::path(folder) / program;
      std::error_code ignored;
      if (path.is_absolute() && fs::is_regular_file(path, ignored) &&
          ::access(path.c_str(), X_OK) == 0)
        return path.string();
    }
  }
  return "";
}

std::string FindSpreadsheetProgram() {
  const char* searchPath = std::getenv("PATH");
  return FindSpreadsheetProgram(searchPath == nullptr ? "" : searchPath);
}

}  // namespace kvi
