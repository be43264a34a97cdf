// A copy of the database beside a plain copy of its file, and a restore beside the statements that
// move the same rows.
#include <fcntl.h>
#include <unistd.h>

#include <filesystem>

#include "bench/Pair.h"
#include "bench/RawFile.h"
#include "bench/Stockroom.h"
#include "jet/Database.h"

namespace kvi::bench {
namespace {

namespace fs = std::filesystem;

constexpr const char* kCopy = "one-center/copy.mdb";
constexpr const char* kScratch = "one-center/restored.mdb";

double SizeOf(const char* path) {
  return static_cast<double>(fs::file_size(path));
}

void BackUp(benchmark::State& state) {
  jet::Database database = jet::Database::Open(kDatabase, false);
  const auto clear = [] { fs::remove(kCopy); };
  RunPair(state, {{[&] {
                     database.CopyTo(kCopy);
                     return SizeOf(kCopy);
                   },
                   clear},
                  {[] {
                     fs::copy_file(kDatabase, kCopy);
                     const int file = open(kCopy, O_WRONLY);
                     fsync(file);
                     close(file);
                     return SizeOf(kCopy);
                   },
                   clear},
                  1.5});
  clear();
}
BENCHMARK(BackUp)->Name("Copy of 30,000 parts, 300,000 purchases")->Apply(AsPair);

// The tables keep their form here, where a restore makes them anew.
double MoveRows(RawFile& file) {
  file.Run("BEGIN IMMEDIATE");
  std::vector<std::string> tables;
  for (sqlite3_stmt* row = file.Prepare("SELECT name FROM sqlite_master WHERE type='table' AND "
                                        "substr(name,1,7)<>'sqlite_'");
       Step(row);)
    tables.push_back("[" + TextOf(row, 0) + "]");
  for (const std::string& table : tables) {
    file.Run("DELETE FROM main." + table);
    file.Run("INSERT INTO main." + table + " SELECT * FROM source." + table);
  }
  file.Run("COMMIT");
  return file.Number("SELECT count(*) FROM Hist_Purchases");
}

void Restore(benchmark::State& state) {
  const ScratchCopy scratch(kScratch);
  jet::Database database = jet::Database::Open(kScratch, false);
  RawFile file(kScratch);
  file.Run(std::string("ATTACH '") + kDatabase + "' AS source");
  RunPair(state,
          {{[&] {
             database.ReplaceContentWith(kDatabase);
             return database.OpenRecordset("SELECT Count(*) AS n FROM Hist_Purchases;").Number("n");
           }},
           {[&] { return MoveRows(file); }},
           1.3});
}
BENCHMARK(Restore)->Name("Restore 30,000 parts, 300,000 purchases")->Apply(AsPair);

}  // namespace
}  // namespace kvi::bench
