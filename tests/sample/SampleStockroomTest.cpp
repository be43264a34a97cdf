#include "sample/SampleStockroom.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "base/Text.h"
#include "store/Schema.h"
#include "support/TableText.h"
#include "support/TemporaryFolder.h"

namespace kvi {
namespace {

class SampleStockroomTest : public testing::Test {
 protected:
  jet::Database Fill(const std::string& name, const SampleOptions& options) {
    jet::Database database = CreateInventoryDatabase(folder_ / name);
    FillSampleStockroom(database, options);
    return database;
  }

  test::TemporaryFolder folder_;
};

std::string AllRows(jet::Database& database) {
  std::string text;
  for (const jet::TableDef& table : Schema()) {
    auto rows = database.OpenRecordset("SELECT * FROM [" + table.Name + "]");
    text += test::RowsText(rows);
  }
  return text;
}

int Count(jet::Database& database, const std::string& sql) {
  return database.OpenRecordset(sql).RecordCount();
}

TEST_F(SampleStockroomTest, SameOptionsGiveTheSameRows) {
  auto first = Fill("first.mdb", {120, 6});
  auto second = Fill("second.mdb", {120, 6});
  const std::string rows = AllRows(first);
  EXPECT_EQ(rows, AllRows(second));
  auto longer = Fill("longer.mdb", {120, 7});
  EXPECT_NE(rows, AllRows(longer));
}

TEST_F(SampleStockroomTest, SmallestAndRepeatedCatalogueStayWhole) {
  auto one = Fill("one.mdb", {1, 6});
  EXPECT_EQ(Count(one, "SELECT * FROM I_Master"), 1);
  // More parts than the catalogue has items: another maker's goods, under names of their own.
  auto many = Fill("many.mdb", {2500, 0});
  EXPECT_EQ(Count(many, "SELECT DISTINCT name FROM I_Master"), 2500);
  EXPECT_EQ(Count(many, "SELECT DISTINCT inv_id FROM I_Master"), 2500);
}

TEST_F(SampleStockroomTest, StockroomIsWholeAndItsLinksResolve) {
  auto database = Fill("sample.mdb", {});
  const std::pair<const char*, int> counts[] = {
      {"SELECT * FROM I_Master", 1500},
      {"SELECT DISTINCT name FROM I_Master", 1500},
      {"SELECT * FROM PCenter", 3},
      {"SELECT * FROM Vendor_Info", 40},
      {"SELECT * FROM R_Master", 60},
      {"SELECT * FROM HI_Header", 18},
      {"SELECT * FROM EmployeeDB", 6},
      {"SELECT * FROM PSO_Master", 7},
      {"SELECT * FROM I_Master WHERE cost_per <= 0 OR hi_qty < 1", 0},
      {"SELECT * FROM I_Master WHERE inv_id IN (SELECT rec_id FROM R_Master)", 0}};
  for (const auto& [sql, count] : counts) EXPECT_EQ(Count(database, sql), count) << sql;
  EXPECT_NEAR(Count(database, "SELECT * FROM Hist_Purchases"), 9000, 500);

  const char* const kDangling[] = {
      "Hist_Purchases WHERE inv_id NOT IN (SELECT inv_id FROM I_Master)",
      "[Historical Inventory] WHERE Inv_ID NOT IN (SELECT inv_id FROM I_Master)",
      "[Historical Inventory] WHERE F_Date NOT IN (SELECT F_Date FROM HI_Header)",
      "PSO_Detail WHERE pso_inv_id NOT IN (SELECT inv_id FROM I_Master) AND pso_inv_id <> "
      "'GONE-4711'",
      "PSO_Detail WHERE pso_id NOT IN (SELECT pso_id FROM PSO_Master)",
      "PSO_Detail WHERE pso_qty <= 0",
      "Inv_Recipe WHERE rec_id NOT IN (SELECT rec_id FROM R_Master)",
      "Inv_Recipe WHERE desc <> 'RECIPE IN RECIPE' AND inv_id NOT IN (SELECT inv_id FROM I_Master)",
      "I_Master WHERE category NOT IN (SELECT Description FROM DD_category)",
      "I_Master WHERE location <> '' AND location NOT IN (SELECT Description FROM DD_inv_loc)",
      "I_Master WHERE how_inv NOT IN (SELECT Description FROM DD_how_inv)",
      "I_Master WHERE pcenter NOT IN (SELECT pcenter FROM PCenter)",
      "R_Master WHERE category NOT IN (SELECT Description FROM DD_rg_cat)",
      "I_Master WHERE where1 <> 'N/A' AND where1 NOT IN (SELECT Name FROM Vendor_Info)",
      "I_Master WHERE where2 <> 'N/A' AND where2 NOT IN (SELECT Name FROM Vendor_Info)",
      "I_Master WHERE where3 <> 'N/A' AND where3 NOT IN (SELECT Name FROM Vendor_Info)",
      "Invoice WHERE Vendor NOT IN (SELECT Name FROM Vendor_Info)"};
  for (const std::string condition : kDangling)
    EXPECT_EQ(Count(database, "SELECT * FROM " + condition), 0) << condition;
}

TEST_F(SampleStockroomTest, OddContentOfRealStockroomsIsThere) {
  auto database = Fill("sample.mdb", {});
  for (const std::string condition :
       {"name LIKE '*é*' OR name LIKE '*µ*'", "desc LIKE '*\"*'", "Len(notes) > 2000",
        "hu_qty IS NULL", "where2 = 'N/A'", "active = 'NO'", "qty_on_hand < 0", "Yield = 90"})
    EXPECT_GT(Count(database, "SELECT * FROM I_Master WHERE " + condition), 0) << condition;
}

TEST_F(SampleStockroomTest, CostIsThatOfTheLastPurchaseAndOfTheVendorInUse) {
  auto database = Fill("sample.mdb", {});
  std::map<std::string, double> lastPaid;
  auto purchases = database.OpenRecordset("SELECT * FROM Hist_Purchases ORDER BY p_date");
  for (; !purchases.Eof(); purchases.MoveNext()) {
    lastPaid[purchases.Text("inv_id")] = purchases.Number("price");
    EXPECT_GT(purchases.Number("p_qty"), 0);
  }
  auto parts = database.OpenRecordset("SELECT * FROM I_Master WHERE VendorOptNo > 0");
  for (; !parts.Eof(); parts.MoveNext()) {
    const std::string number = parts.Text("inv_id");
    const double cost = parts.Number("cost_per");
    const auto paid = lastPaid.find(number);
    EXPECT_EQ(paid == lastPaid.end() ? cost : paid->second, cost) << number;
    const Value& price = parts["Price" + parts.Text("VendorOptNo")];
    EXPECT_EQ(price.IsNull() ? cost : price.Number(), cost) << number;
  }
}

TEST_F(SampleStockroomTest, GroupCostsAreTheSumsOfTheirLinesAndNestedOnesResolve) {
  auto database = Fill("sample.mdb", {});
  std::map<std::string, double> sums;
  std::set<std::string> nested;
  auto lines = database.OpenRecordset("SELECT * FROM Inv_Recipe");
  for (; !lines.Eof(); lines.MoveNext()) {
    sums[lines.Text("rec_id")] += lines.Number("qty") * lines.Number("cost_per");
    if (lines.Text("desc") == "RECIPE IN RECIPE")
      nested.insert(Replace(lines.Text("inv_id"), " (part group #)", ""));
  }
  auto groups = database.OpenRecordset("SELECT * FROM R_Master");
  for (; !groups.Eof(); groups.MoveNext()) {
    EXPECT_NEAR(sums[groups.Text("rec_id")], groups.Number("cost"), 1e-6) << groups.Text("name");
    nested.erase(groups.Text("rec_id"));
  }
  EXPECT_EQ(sums.size(), 60u);
  EXPECT_TRUE(nested.empty()) << *nested.begin();
  EXPECT_GT(Count(database, "SELECT * FROM Inv_Recipe WHERE desc = 'RECIPE IN RECIPE'"), 10);
}

}  // namespace
}  // namespace kvi
