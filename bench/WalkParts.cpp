// A walk over all parts that reads five fields of each.
#include "bench/Pair.h"
#include "bench/RawFile.h"
#include "bench/Stockroom.h"

namespace kvi::bench {
namespace {

constexpr const char* kAllParts = "SELECT * FROM I_Master;";

double SumOf(const std::string& number, const std::string& name, const std::string& category,
             double quantity, double cost) {
  return static_cast<double>(number.size() + name.size() + category.size()) + quantity + cost;
}

double Ours(jet::Database& database) {
  double sum = 0;
  for (auto parts = database.OpenRecordset(kAllParts); !parts.Eof(); parts.MoveNext())
    sum += SumOf(parts.Text("inv_id"), parts.Text("name"), parts.Text("category"),
                 parts.Number("qty_on_hand"), parts.Number("cost_per"));
  return sum;
}

double Floor(sqlite3_stmt* parts) {
  const int number = ColumnNamed(parts, "inv_id"), name = ColumnNamed(parts, "name");
  const int category = ColumnNamed(parts, "category");
  const int quantity = ColumnNamed(parts, "qty_on_hand"), cost = ColumnNamed(parts, "cost_per");
  double sum = 0;
  while (Step(parts))
    sum += SumOf(TextOf(parts, number), TextOf(parts, name), TextOf(parts, category),
                 sqlite3_column_double(parts, quantity), sqlite3_column_double(parts, cost));
  return sum;
}

void WalkParts(benchmark::State& state) {
  jet::Database database = jet::Database::Open(kDatabase, false);
  RawFile file(kDatabase);
  sqlite3_stmt* parts = file.Prepare(kAllParts);
  RunPair(state, {{[&] { return Ours(database); }}, {[&] { return Floor(parts); }}, 1.5});
}
BENCHMARK(WalkParts)->Name("Walk 30,000 parts, read five fields")->Apply(AsPair);

}  // namespace
}  // namespace kvi::bench
