#include "usage/HistoryIntegrity.h"

#include <map>
#include <set>
#include <string>
#include <utility>

#include "base/Number.h"
#include "frame/BulkWalk.h"
#include "frame/GENERAL.h"
#include "platform/Progress.h"

namespace kvi {

namespace {

// Between single quotes a statement takes a doubled quote for one of the text.
std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char character : text) {
    if (character == '\'') quoted += '\'';
    quoted += character;
  }
  return quoted + "'";
}

// The table's rows that lie elsewhere than their part are found in one join, instead of by two
// statements a part; mostly there are none.
void PurgeForeignRows(jet::Database& database, const std::string& table) {
  std::set<std::pair<std::string, int>> foreign;
  jet::Recordset rows = database.OpenRecordset(
      "SELECT H.Inv_ID AS id, M.pcenter AS home FROM I_Master AS M INNER JOIN " + table +
      " AS H ON H.Inv_ID = Trim(M.inv_id) WHERE H.PCenter <> M.pcenter OR "
      "(M.pcenter Is Null AND H.PCenter <> 0)");
  for (; !rows.Eof(); rows.MoveNext())
    foreign.emplace(rows.Text("id"), static_cast<int>(rows.Number("home")));
  for (const auto& [id, home] : foreign)
    database.Execute("DELETE * FROM " + table + " WHERE Inv_ID = " + Quoted(id) +
                     " AND PCenter <> " + Str(home) + ";");
}

void RepairPricesOf(jet::Database& database, const std::string& table) {
  std::map<std::string, double> costs;
  const auto costOf = [&](const std::string& number) {
    const auto known = costs.find(number);
    if (known != costs.end()) return known->second;
    return costs[number] = GetItemCostPer(database, number);
  };
  jet::Recordset rows =
      database.OpenRecordset("SELECT * FROM " + table + " WHERE Price = 0 OR Price = NULL;");
  WalkAndChange(
      database, rows,
      [&](jet::Recordset& row) {
        if (row["Price"].IsNull() || row.Number("Price") != 0) return RowEnd::Leave;
        row.Set("Price", costOf(row.Text("inv_id")));
        return RowEnd::Write;
      },
      [&](const jet::Recordset& row) { return costOf(row.Text("inv_id")) != 0; });
}

}  // namespace

void PurgeForeignHistory(jet::Database& database, Progress& progress) {
  progress.Begin("Levels of other profit centers");
  PurgeForeignRows(database, "[Historical Inventory]");
  progress.Begin("Purchases of other profit centers");
  PurgeForeignRows(database, "Hist_Purchases");
}

void DeleteEmptyPeriods(jet::Database& database, int profitCenter) {
  jet::Recordset headers = database.OpenRecordset(
      "SELECT * FROM HI_Header WHERE pcenter = " + Str(profitCenter) + " ORDER BY F_date");
  for (; !headers.Eof(); headers.MoveNext()) {
    const std::string ofPeriod =
        "pcenter = " + Str(profitCenter) + " AND F_Date = #" + headers.Text("F_Date") + "#;";
    if (headers["F_Date"].IsNull() ||
        database.OpenRecordset("SELECT TOP 1 Inv_ID FROM [Historical Inventory] WHERE " + ofPeriod)
            .Eof())
      headers.Delete();
  }
}

void RepairZeroPrices(jet::Database& database, Progress& progress) {
  progress.Begin("Levels without a price");
  RepairPricesOf(database, "[Historical Inventory]");
  progress.Begin("Purchases without a price");
  RepairPricesOf(database, "Hist_Purchases");
}

}  // namespace kvi
