// Parts found by their number in a set of all parts.
#include "bench/Pair.h"
#include "bench/RawFile.h"
#include "bench/Stockroom.h"

namespace kvi::bench {
namespace {

// Numbers from all over the table, not in its order.
std::vector<std::string> SomeNumbers(RawFile& file) {
  constexpr std::size_t kCount = 1000, kStride = 7919;
  std::vector<std::string> all, some;
  for (sqlite3_stmt* rows = file.Prepare("SELECT inv_id FROM I_Master"); Step(rows);)
    all.push_back(TextOf(rows, 0));
  while (some.size() < kCount) some.push_back(all[some.size() * kStride % all.size()]);
  return some;
}

double Ours(jet::Recordset& parts, const std::vector<std::string>& numbers) {
  double sum = 0;
  for (const std::string& number : numbers) {
    parts.FindFirst("inv_id = '" + number + "'");
    if (!parts.NoMatch()) sum += static_cast<double>(parts.Text("name").size());
  }
  return sum;
}

double Floor(sqlite3_stmt* part, const std::vector<std::string>& numbers) {
  double sum = 0;
  for (const std::string& number : numbers) {
    sqlite3_bind_text(part, 1, number.data(), static_cast<int>(number.size()), SQLITE_STATIC);
    while (Step(part)) sum += static_cast<double>(TextOf(part, 1).size());
  }
  return sum;
}

void FindPart(benchmark::State& state) {
  jet::Database database = jet::Database::Open(kDatabase, false);
  jet::Recordset parts = database.OpenRecordset("SELECT * FROM I_Master;");
  RawFile file(kDatabase);
  const std::vector<std::string> numbers = SomeNumbers(file);
  sqlite3_stmt* part = file.Prepare("SELECT _rid,name FROM I_Master WHERE inv_id=?1");
  RunPair(state,
          {{[&] { return Ours(parts, numbers); }}, {[&] { return Floor(part, numbers); }}, 1.5});
}
BENCHMARK(FindPart)->Name("Find 1,000 parts among 30,000 by number")->Apply(AsPair);

}  // namespace
}  // namespace kvi::bench
