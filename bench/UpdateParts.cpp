// One field of every part edited and written, in a batch.
#include "bench/CommitGroups.h"
#include "bench/Pair.h"
#include "bench/Stockroom.h"

namespace kvi::bench {
namespace {

double Ours(jet::Database& database) {
  double sum = 0;
  auto parts = database.OpenRecordset("SELECT * FROM I_Master;");
  jet::WriteBatch batch(database);
  for (; !parts.Eof(); parts.MoveNext()) {
    const double quantity = parts.Number("qty_on_hand") + 1;
    parts.Edit();
    parts.Set("qty_on_hand", quantity);
    parts.Update();
    sum += quantity;
  }
  batch.Finish();
  return sum;
}

double Floor(RawFile& file, sqlite3_stmt* update) {
  std::vector<std::pair<sqlite3_int64, double>> parts;
  for (sqlite3_stmt* rows = file.Prepare("SELECT _rid,qty_on_hand FROM I_Master"); Step(rows);)
    parts.emplace_back(sqlite3_column_int64(rows, 0), sqlite3_column_double(rows, 1));
  double sum = 0;
  CommitGroups groups(file);
  for (const auto& [key, quantity] : parts) {
    groups.Next();
    sqlite3_bind_int64(update, 1, key);
    sqlite3_bind_double(update, 2, quantity + 1);
    Step(update);
    sum += quantity + 1;
  }
  groups.Finish();
  return sum;
}

// Each side has a file of its own: the other's writes would empty its page cache.
void UpdateParts(benchmark::State& state) {
  const ScratchCopy ours("update-ours.mdb"), floor("update-floor.mdb");
  jet::Database database = jet::Database::Open(ours.Path(), false);
  RawFile file(floor.Path());
  sqlite3_stmt* update =
      file.Prepare("UPDATE I_Master SET qty_on_hand=?2,_ver=_ver+1 WHERE _rid=?1");
  RunPair(state, {{[&] { return Ours(database); }}, {[&] { return Floor(file, update); }}, 1.35});
}
BENCHMARK(UpdateParts)->Name("Edit and update 30,000 parts in a batch")->Apply(AsPair);

}  // namespace
}  // namespace kvi::bench
