// The parts of the profit center by name, as they are opened whenever the profit center changes.
#include "bench/Pair.h"
#include "bench/RawFile.h"
#include "bench/Stockroom.h"

namespace kvi::bench {
namespace {

void OpenItemSet(benchmark::State& state) {
  jet::Database database = jet::Database::Open(kDatabase, false);
  const auto ours = [&] {
    auto parts = database.OpenRecordset("SELECT * FROM I_Master where pcenter = 0 ORDER BY name");
    return static_cast<double>(parts.Text("name").size()) + parts.RecordCount();
  };
  RawFile file(kDatabase);
  sqlite3_stmt* keys = file.Prepare("SELECT _rid FROM I_Master WHERE pcenter=0 ORDER BY name,_rid");
  sqlite3_stmt* part = file.Prepare("SELECT * FROM I_Master WHERE _rid=?1");
  const int nameColumn = ColumnNamed(part, "name");
  const auto floor = [&] {
    std::vector<sqlite3_int64> found;
    while (Step(keys)) found.push_back(sqlite3_column_int64(keys, 0));
    sqlite3_bind_int64(part, 1, found.front());
    std::string name;
    while (Step(part)) name = TextOf(part, nameColumn);
    return static_cast<double>(name.size() + found.size());
  };
  RunPair(state, {{ours}, {floor}, 1.5});
}
BENCHMARK(OpenItemSet)->Name("Open ItemSet, 30,000 parts by name")->Apply(AsPair);

}  // namespace
}  // namespace kvi::bench
