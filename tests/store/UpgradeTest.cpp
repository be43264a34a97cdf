#include <gtest/gtest.h>

#include "store/RepairItemDefaults.h"
#include "store/Schema.h"
#include "store/UpgradeSchema.h"
#include "support/TestStockroom.h"

namespace kvi::test {
namespace {

// A database as an older version wrote it: without the columns that came later.
std::vector<jet::TableDef> OlderSchema() {
  std::vector<jet::TableDef> tables = Schema();
  for (jet::TableDef& table : tables)
    std::erase_if(table.Fields, [](const jet::FieldDef& field) {
      return field.Name == "BarCodeScan" || field.Name == "CorpInventoryItem";
    });
  return tables;
}

TEST(UpgradeTest, AnOlderFileGetsItsColumnsOnceAndKeepsItsRows) {
  TestStockroom stockroom;
  std::filesystem::remove(stockroom.DatabaseFile());
  {
    jet::Database old = jet::Database::Create(stockroom.DatabaseFile(), OlderSchema());
    old.Execute("INSERT INTO I_Master (inv_id, name) VALUES ('1', 'Bolt')");
    ASSERT_FALSE(FieldExists(old, "I_Master", "barcodescan"));
  }
  ASSERT_TRUE(stockroom.Start());
  EXPECT_EQ(stockroom.Rows("SELECT inv_id, name, BarCodeScan, CorpInventoryItem FROM I_Master"),
            "1|Bolt|Null|False\n");
  ASSERT_TRUE(stockroom.Exit());
  const std::string once = ReadFile(stockroom.DatabaseFile());
  ASSERT_TRUE(stockroom.Start());
  ASSERT_TRUE(stockroom.Exit());
  EXPECT_TRUE(ReadFile(stockroom.DatabaseFile()) == once) << "a second start writes nothing";
}

TEST(UpgradeTest, AddFieldKnowsItsTypesAndTakesAStandingFieldForDone) {
  TestStockroom stockroom;
  ASSERT_TRUE(stockroom.Start());
  jet::Database& database = stockroom.App().CurrentDatabase;
  int number = 0;
  for (const char* type : {"text", "INTEGER", "Single", "DOUBLE", "MEMO", "BOOLEAN", "DATE"})
    EXPECT_TRUE(
        AddField(database, stockroom.desktop, "PCenter", "f" + std::to_string(++number), type, 30))
        << type;
  EXPECT_TRUE(AddField(database, stockroom.desktop, "PCenter", "NAME", "TEXT", 10));
  EXPECT_TRUE(FieldExists(database, "pcenter", "F7"));
  stockroom.desktop.ExpectBox("3265 Item not found in this collection. (NoTable)");
  EXPECT_FALSE(AddField(database, stockroom.desktop, "NoTable", "f", "TEXT", 10));
}

TEST(RepairTest, FillsTheHolesOfAPartAndTouchesNothingElse) {
  TestStockroom stockroom;
  stockroom.Fill("I_Master",
                 "inv_id | how_used | how_inv | how_purchased | hu_qty | hi_qty | qty_on_hand | "
                 "re_order | valuation | cost_per\n"
                 "1 | | '' | | | | | | |\n"
                 "2 | box | case | '' | 0 | 0 | 4 | 5 | 6 | 7\n"
                 "3 | box | case | drum | 0.00009 | 2 | 4 | 5 | 6 | 7\n"
                 "4 | box | case | drum | 0.0001 | 2 | 4 | 5 | 6 | 7");
  ASSERT_TRUE(stockroom.Start());
  EXPECT_EQ(
      stockroom.Rows("SELECT inv_id, how_used, how_inv, how_purchased, hu_qty, hi_qty, "
                     "qty_on_hand, re_order, valuation, cost_per FROM I_Master ORDER BY inv_id"),
      "1|each|each|Null|1|Null|0|0|0|0\n"
      "2|box|case||1|0|4|5|6|7\n"
      "3|box|case|drum|1|2|4|5|6|7\n"
      "4|box|case|drum|0.0001|2|4|5|6|7\n");
}

TEST(RepairTest, TheBaseRecordIsThereOnceHoweverOftenItIsAskedFor) {
  TestStockroom stockroom;
  ASSERT_TRUE(stockroom.Start());
  Application& app = stockroom.App();
  EnsureBaseRecord(app.CurrentDatabase, app.ItemSet);
  EnsureBaseRecord(app.CurrentDatabase, app.ItemSet);
  EXPECT_EQ(stockroom.Rows("SELECT inv_id, name, category, active, pcenter FROM I_Master"),
            "999999|Base Record|KVI always needs one record|NO|Null\n");
}

}  // namespace
}  // namespace kvi::test
