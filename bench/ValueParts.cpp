// The valuation of every part by each method, out of ten purchases a part.
#include <algorithm>
#include <cmath>

#include "bench/CommitGroups.h"
#include "bench/Pair.h"
#include "bench/Stockroom.h"
#include "valuation/ItemValuation.h"

namespace kvi::bench {
namespace {

struct Part {
  sqlite3_int64 key;
  std::string number;
  double quantity, cost;
};

std::vector<Part> PartsOf(RawFile& file) {
  std::vector<Part> parts;
  sqlite3_stmt* rows = file.Prepare(
      "SELECT _rid,inv_id,qty_on_hand,cost_per FROM I_Master WHERE pcenter=0 ORDER BY inv_id");
  while (Step(rows))
    parts.push_back({sqlite3_column_int64(rows, 0), TextOf(rows, 1), sqlite3_column_double(rows, 2),
                     sqlite3_column_double(rows, 3)});
  return parts;
}

// Newest first, to the layer that covers the rest.
double Fifo(sqlite3_stmt* receipts, const Part& part) {
  double covered = 0, total = 0;
  bool any = false;
  while (covered < part.quantity && Step(receipts)) {
    any = true;
    const double take = std::min(sqlite3_column_double(receipts, 0), part.quantity - covered);
    total += take * sqlite3_column_double(receipts, 1);
    covered += take;
  }
  sqlite3_reset(receipts);
  return any ? total + (part.quantity - covered) * part.cost : part.quantity * part.cost;
}

double Average(sqlite3_stmt* receipts, const Part& part) {
  double covered = 0, total = 0;
  while (Step(receipts)) {
    total += sqlite3_column_double(receipts, 0) * sqlite3_column_double(receipts, 1);
    covered += sqlite3_column_double(receipts, 0);
  }
  return (covered == 0 ? part.cost : total / covered) * part.quantity;
}

// Whether there is any history makes no difference here, but it is looked for.
double LastPrice(sqlite3_stmt* receipts, const Part& part) {
  Step(receipts);
  sqlite3_reset(receipts);
  return part.quantity * part.cost;
}

using Method = double (*)(sqlite3_stmt* receipts, const Part& part);

void Floor(RawFile& file, sqlite3_stmt* receipts, sqlite3_stmt* update, Method method) {
  const std::vector<Part> parts = PartsOf(file);
  CommitGroups groups(file);
  for (const Part& part : parts) {
    groups.Next();
    BindText(receipts, 1, part.number);
    sqlite3_bind_int64(update, 1, part.key);
    sqlite3_bind_double(update, 2, part.quantity == 0 ? 0 : method(receipts, part));
    Step(update);
  }
  groups.Finish();
}

double Sum(const std::string& path) {
  return std::round(RawFile(path).Number("SELECT sum(valuation) FROM I_Master"));
}

void ValueParts(benchmark::State& state, ValuationMethod method, Method floorMethod) {
  const ScratchCopy ours("value-ours.mdb"), floor("value-floor.mdb");
  jet::Database database = jet::Database::Open(ours.Path(), false);
  RawFile file(floor.Path());
  sqlite3_stmt* receipts = file.Prepare(
      "SELECT p_qty,price FROM Hist_Purchases WHERE inv_id=?1 ORDER BY p_date DESC,_rid");
  sqlite3_stmt* update = file.Prepare("UPDATE I_Master SET valuation=?2,_ver=_ver+1 WHERE _rid=?1");
  BenchDesktop desktop;
  const Side ourSide{[&] {
    UpdateAllValuations(database, method, desktop, 0);
    return 0;
  }};
  const Side floorSide{[&] {
    Floor(file, receipts, update, floorMethod);
    return 0;
  }};
  ourSide.run();
  floorSide.run();
  if (Sum(ours.Path()) != Sum(floor.Path())) return state.SkipWithError("the values differ");
  RunPair(state, {ourSide, floorSide, 1.5});
}
BENCHMARK_CAPTURE(ValueParts, fifo, ValuationMethod::FIFO, Fifo)
    ->Name("Value 30,000 parts by layers")
    ->Apply(AsPair);
BENCHMARK_CAPTURE(ValueParts, average, ValuationMethod::Weighted, Average)
    ->Name("Value 30,000 parts by average")
    ->Apply(AsPair);
BENCHMARK_CAPTURE(ValueParts, last, ValuationMethod::LastPrice, LastPrice)
    ->Name("Value 30,000 parts by last price")
    ->Apply(AsPair);

}  // namespace
}  // namespace kvi::bench
