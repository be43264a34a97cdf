#include "store/Schema.h"

#include <gtest/gtest.h>

#include "base/ErrorOf.h"
#include "support/TemporaryFolder.h"

namespace kvi {
namespace {

class SchemaTest : public testing::Test {
 protected:
  // The error number with which a row is refused, 0 when it is taken.
  int Add(const std::string& table, const std::vector<std::pair<std::string, Value>>& fields) {
    auto rows = database_.OpenRecordset("SELECT * FROM [" + table + "]");
    return ErrorOf([&] {
      rows.AddNew();
      for (const auto& [field, value] : fields) rows.Set(field, value);
      rows.Update();
    });
  }

  test::TemporaryFolder folder_;
  jet::Database database_ = CreateInventoryDatabase(folder_ / "KV_Inventory.mdb");
};

TEST_F(SchemaTest, KeysAreUniqueAndTextsKeepTheirLength) {
  constexpr int kDuplicateKey = 3022, kTooLong = 3163;
  const Date day{2026, 3, 9};
  EXPECT_EQ(Add("I_Master", {{"inv_id", "BRG-1"}}), 0);
  EXPECT_EQ(Add("I_Master", {{"inv_id", "brg-1"}}), kDuplicateKey);
  EXPECT_EQ(Add("I_Master", {{"inv_id", "1234567890123456"}}), kTooLong);
  EXPECT_EQ(Add("I_Master", {{"inv_id", "100"}, {"BarCodeScan", std::string(31, '7')}}), kTooLong);
  EXPECT_EQ(Add("I_Master", {{"inv_id", "100"}, {"notes", std::string(40000, 'n')}}), 0);
  EXPECT_EQ(Add("R_Master", {{"rec_id", "G1"}, {"pcenter", 0}}), 0);
  EXPECT_EQ(Add("R_Master", {{"rec_id", "G1"}, {"pcenter", 4}}), kDuplicateKey);
  EXPECT_EQ(Add("HI_Header", {{"F_Date", day}, {"pcenter", 0}}), 0);
  EXPECT_EQ(Add("HI_Header", {{"F_Date", day}, {"pcenter", 4}}), 0);
  EXPECT_EQ(Add("HI_Header", {{"F_Date", day}, {"pcenter", 0}}), kDuplicateKey);
  // Two orders that draw the same number share it.
  EXPECT_EQ(Add("PSO_Master", {{"pso_id", 7}}), 0);
  EXPECT_EQ(Add("PSO_Master", {{"pso_id", 7}}), 0);
}

TEST_F(SchemaTest, NewDatabaseHasOneWidthForEachColumnOfTheGrids) {
  const std::pair<std::string, int> kGrids[] = {
      {"CW_Inventory", 21}, {"CW_Recipes", 5}, {"CW_Orders", 14}};
  for (const auto& [table, columns] : kGrids) {
    auto rows = database_.OpenRecordset("SELECT * FROM " + table + " ORDER BY Ordinal;");
    EXPECT_EQ(rows.RecordCount(), columns) << table;
    for (int ordinal = 1; !rows.Eof(); rows.MoveNext(), ++ordinal) {
      EXPECT_EQ(rows.Number("Ordinal"), ordinal) << table;
      EXPECT_GE(rows.Number("ColWidth"), 150) << table;
    }
  }
}

}  // namespace
}  // namespace kvi
