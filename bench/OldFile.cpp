// A Jet 4 file of all the stockroom has: read to its end, and made into a database of ours.
#include <filesystem>
#include <fstream>

#include "bench/Pair.h"
#include "bench/RawFile.h"
#include "bench/Stockroom.h"
#include "sample/oldfiles/WriteDatabase.h"
#include "store/ConvertInventory.h"
#include "store/Schema.h"

namespace kvi::bench {
namespace {

namespace fs = std::filesystem;

constexpr const char* kOldFile = "one-center/OLD.MDB";
constexpr const char* kMade = "one-center/NEW.mdb";
constexpr int kRounds = 9;

void MakeOldFile() {
  if (fs::exists(kOldFile)) return;
  jet::Database database = jet::Database::Open(kDatabase, false);
  std::ofstream(kOldFile, std::ios::binary) << jetfile::JetFileOf(database, jetfile::Version::Jet4);
}

double RowsIn(const jet::Conversion& protocol) {
  double rows = 0;
  for (const jet::ConvertedTable& table : protocol.Tables) rows += table.Rows;
  return protocol.IsWhole() ? rows : 0;
}

std::vector<std::string> Tables(RawFile& file) {
  std::vector<std::string> names;
  sqlite3_stmt* rows = file.Prepare(
      "SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE 'sqlite_%'");
  while (Step(rows)) names.push_back("[" + TextOf(rows, 0) + "]");
  return names;
}

// The rows of a table with all of their values.
double Walk(RawFile& file, const std::string& table) {
  sqlite3_stmt* rows = file.Prepare("SELECT * FROM " + table);
  double count = 0;
  for (const int columns = sqlite3_column_count(rows); Step(rows); ++count)
    for (int i = 0; i < columns; ++i) benchmark::DoNotOptimize(sqlite3_column_bytes(rows, i));
  return count;
}

void ReadOldFile(benchmark::State& state) {
  MakeOldFile();
  RunPair(state, {{[] { return RowsIn(jet::CheckOldFile({kOldFile})); }},
                  {[] {
                    RawFile file(kDatabase);
                    double rows = 0;
                    for (const std::string& table : Tables(file)) rows += Walk(file, table);
                    return rows;
                  }},
                  4});
}
BENCHMARK(ReadOldFile)
    ->Name("Read a Jet file of 300,000 purchases")
    ->UseManualTime()
    ->Iterations(kRounds);

void RemoveMade() {
  for (const char* end : {"", "-journal"}) fs::remove(std::string(kMade) + end);
}

// The same rows into the same tables and indexes, statement by statement of SQLite alone.
double InsertRaw() {
  { CreateInventoryDatabase(kMade); }
  RawFile file(kMade);
  file.Run(std::string("ATTACH '") + kDatabase + "' AS old;BEGIN");
  double rows = 0;
  for (const std::string& table : Tables(file)) {
    file.Run("DELETE FROM main." + table);
    file.Run("INSERT INTO main." + table + " SELECT * FROM old." + table);
    rows += file.Number("SELECT count(*) FROM main." + table);
  }
  file.Run("COMMIT");
  return rows;
}

void ConvertAnOldFile(benchmark::State& state) {
  MakeOldFile();
  RunPair(state, {{[] { return RowsIn(ConvertInventory({kOldFile}, kMade)); }, RemoveMade},
                  {InsertRaw, RemoveMade},
                  2});
}
BENCHMARK(ConvertAnOldFile)->Name("Convert it")->UseManualTime()->Iterations(kRounds);

}  // namespace
}  // namespace kvi::bench
