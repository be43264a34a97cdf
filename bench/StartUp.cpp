// What a start does with the database: from its opening to the filled drop lists.
#include "base/Text.h"
#include "bench/Pair.h"
#include "bench/RawFile.h"
#include "bench/Stockroom.h"
#include "items/KVI_ChooseVendors.h"
#include "store/DropDown.h"
#include "store/OpenInventoryDatabase.h"

namespace kvi::bench {
namespace {

double Ours(Application& app) {
  OpenInventoryDatabase(app);
  LoadDropLists(app);
  return app.ItemSet.RecordCount() + app.PartGroupSet.RecordCount() +
         app.PurchaseSet.RecordCount() + app.EmployeeSet.RecordCount() + app.profitCenters.Count() +
         app.Get<KVI_ChooseVendors>().where1.ListCount();
}

bool IsBlank(sqlite3_stmt* row, int column) {
  return Trim(TextOf(row, column)).empty();
}
bool IsMissing(sqlite3_stmt* row, int column) {
  return sqlite3_column_type(row, column) == SQLITE_NULL;
}

// The tests by which holes of the parts are found. There is none: an earlier start filled them.
int CountHoles(RawFile& file) {
  int holes = 0;
  for (sqlite3_stmt* row = file.Prepare(
           "SELECT how_used,how_inv,hu_qty,qty_on_hand,re_order,valuation,cost_per FROM I_Master");
       Step(row);) {
    holes += IsBlank(row, 0) + IsBlank(row, 1);
    holes += IsMissing(row, 2) || sqlite3_column_double(row, 2) < 0.0001;
    for (int column = 3; column <= 6; ++column) holes += IsMissing(row, column);
  }
  return holes;
}

double Floor(RawFile& file) {
  const auto countKeys = [&](const std::string& from) {
    return static_cast<double>(file.Keys("SELECT _rid FROM " + from).size());
  };
  double sum = CountHoles(file);
  sum += file.Walk("SELECT * FROM PCenter");
  sum += countKeys("I_Master WHERE pcenter=0 ORDER BY name,_rid");
  sum += countKeys("R_Master WHERE pcenter=0 ORDER BY name,_rid");
  sum += countKeys("Hist_Purchases WHERE pcenter=0 ORDER BY _rid");
  sum += file.Walk("SELECT * FROM EmployeeDB");
  return sum + file.Walk("SELECT Name FROM Vendor_Info");
}

void StartUp(benchmark::State& state) {
  std::unique_ptr<Desk> desk;
  std::unique_ptr<RawFile> file;
  RunPair(state, {{[&] { return Ours(desk->App()); },
                   [&] {
                     desk.reset();
                     desk = std::make_unique<Desk>();
                   }},
                  {[&] {
                     file = std::make_unique<RawFile>(kDatabase);
                     return Floor(*file);
                   },
                   [&] { file.reset(); }},
                  2});
}
BENCHMARK(StartUp)->Name("Start on 30,000 parts")->Apply(AsPair);

}  // namespace
}  // namespace kvi::bench
