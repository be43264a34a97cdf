// Moves a stockroom between a database file and a server: kvi-move FROM TO.

#include <cstdio>
#include <filesystem>
#include <string>

#include "ConsoleProgram.h"
#include "base/HiddenFolder.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "jet/Database.h"
#include "jet/Server.h"
#include "store/OpenInventoryDatabase.h"
#include "store/Restore.h"

namespace {

namespace fs = std::filesystem;
using kvi::jet::Database;

constexpr int kExists = 58;

constexpr const char* kUsage = "Usage: kvi-move FROM TO\n";
constexpr const char* kHelp =
    "Copies a whole stockroom from a database file into a server's database, or back. FROM and TO "
    "are\n"
    "a KV_Inventory.mdb each, or the folder of one: a real file, or the one of two lines that "
    "names a\n"
    "server's database. Close the program on every desk first. FROM is only read; a server that "
    "TO\n"
    "names must have no rows but column widths yet, and a file TO must not be there. All is\n"
    "copied, or nothing.\n";

std::string FileOf(const std::string& place) {
  std::error_code ignored;
  return fs::is_directory(place, ignored) ? (fs::path(place) / kvi::kDatabaseFile).string() : place;
}

// Where a new stockroom has its column widths.
bool HoldsWidths(const std::string& table) {
  return kvi::UCase(table).starts_with("CW_");
}

// The rows of each table, and of all; told of, or only those of a stockroom at work.
long CountRows(Database& database, bool tell) {
  long all = 0;
  for (const kvi::jet::TableDef& table : database.TableDefs()) {
    if (!tell && HoldsWidths(table.Name)) continue;
    auto rows = database.OpenSnapshot("SELECT Count(*) AS n FROM [" + table.Name + "]", {});
    const long count = static_cast<long>(rows.Number("n"));
    if (tell && count > 0) std::printf("%9ld  %s\n", count, table.Name.c_str());
    all += count;
  }
  return all;
}

void Move(const std::string& from, const std::string& to) {
  if (kvi::jet::ServerNamedIn(to)) {
    kvi::RequireInventoryFile(from);
    Database target = Database::Open(to, true);
    if (CountRows(target, false) > 0)
      throw kvi::RunTimeError(
          kExists, "The server's database that " + to + " names has rows. Nothing was changed.");
    const kvi::HiddenFolder folder;
    const std::string copy = folder / "moved.mdb";
    if (kvi::jet::ServerNamedIn(from)) Database::Open(from, true).CopyTo(copy);
    target.ReplaceContentWith(kvi::jet::ServerNamedIn(from) ? copy : from);
  } else {
    Database::Open(from, true).CopyTo(to);
  }
  Database moved = Database::Open(to, false);
  std::printf("%9ld  rows in all\n", CountRows(moved, true));
}

int Run(int argc, char** argv) {
  std::string places[2];
  int count = 0;
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    if (argument.starts_with("-")) throw kvi::BadArgument{"Unknown option " + argument + "."};
    if (count == 2) throw kvi::BadArgument{"\"" + argument + "\" is one place too many."};
    places[count++] = FileOf(argument);
  }
  if (count < 2) throw kvi::BadArgument{"FROM and TO are needed."};
  Move(places[0], places[1]);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  return kvi::RunConsoleProgram({"kvi-move", kUsage, kHelp}, argc, argv,
                                [&] { return Run(argc, argv); });
}
