#include "grids/SprdSubs.h"

#include <gtest/gtest.h>

#include <string>

#include "base/Number.h"
#include "store/Schema.h"
#include "support/BareScreen.h"
#include "support/TemporaryFolder.h"

namespace kvi {
namespace {

class SprdSubsTest : public testing::Test {
 protected:
  std::string BackColors() const {
    std::string colors;
    for (int row = 1; row <= grid.MaxRows(); ++row)
      colors += Str(grid.Format(row, 2).BackColor) + " ";
    return colors;
  }
  std::string Place() const {
    return Str(grid.Row) + "," + Str(grid.Col) + " active " + Str(grid.ActiveRow()) + "," +
           Str(grid.ActiveCol());
  }

  test::BareScreen screen;
  Spread grid{screen, "Spread1", 3, 5};
};

TEST_F(SprdSubsTest, GridWrappersMoveTheCursorAndTheActiveCell) {
  GoToCell(grid, 4, 3);
  EXPECT_EQ(Place(), "4,3 active 4,3");
  GoToRow(grid, 2);
  EXPECT_EQ(Place(), "2,1 active 2,1");
  GoToFirstCell(grid);
  EXPECT_EQ(Place(), "1,1 active 1,1");
  GoToRow(grid, 9);
  EXPECT_EQ(grid.ActiveRow(), 5);
  grid.SetText(5, 3, "x");
  ClearGrid(grid);
  EXPECT_EQ(Place(), "1,1 active 5,1");
  EXPECT_EQ(grid.Text(5, 3), "");
  EXPECT_EQ(grid.MaxRows(), 5);
  grid.SetMaxRows(0);
  GoToFirstCell(grid);
  EXPECT_EQ(Place(), "1,1 active 0,1");
}

TEST_F(SprdSubsTest, ALockedGridIsReadOnlyForRowsThatComeLater) {
  grid.SetLock(Block::Cell(2, 2), false);
  LockGrid(grid);
  grid.SetMaxRows(6);
  EXPECT_FALSE(grid.TypeText(2, 2, "x"));
  EXPECT_FALSE(grid.TypeText(6, 1, "x"));
}

TEST_F(SprdSubsTest, EvenRowsAreGreyWithColoursAndAllWhiteWithout) {
  ShadeGridRows(grid, true);
  EXPECT_EQ(BackColors(), "15 7 15 7 15 ");
  grid.SetBackColor(Block::Cell(3, 2), kBrightRed);
  grid.DeleteRow(1);
  EXPECT_EQ(BackColors(), "7 12 7 15 ");
  grid.SetActiveCell(3, 1);
  grid.Row = 4;
  ShadeGridRows(grid, true);
  EXPECT_EQ(BackColors(), "15 7 15 7 ") << "the stripes stand over the cell's red";
  EXPECT_EQ(grid.Row, 3);
  ShadeGridRows(grid, false);
  EXPECT_EQ(BackColors(), "15 15 15 15 ");
  grid.SetMaxRows(0);
  ShadeGridRows(grid, true);
  EXPECT_EQ(grid.Row, 1) << "no row is active";
}

TEST_F(SprdSubsTest, AKeyGoesToTheFirstRowThatBeginsWithItsLetter) {
  const char* names[] = {"", " ", "nut", "Émail", "Nail"};
  for (int row = 1; row <= 5; ++row) grid.SetText(row, 2, names[row - 1]);
  GoToCell(grid, 5, 3);
  const std::pair<const char*, int> cases[] = {{"N", 3}, {"é", 4}, {"n", 3}, {"x", 3}, {" ", 3}};
  for (const auto& [key, row] : cases) {
    GoToFirstLetter(grid, 2, key);
    EXPECT_EQ(Place(), Str(row) + ",3 active " + Str(row) + ",3") << key;
  }
}

class ColumnWidthsTest : public testing::Test {
 protected:
  void SetTable(const std::string& table, const std::vector<int>& widths) {
    database.Execute("DELETE * FROM " + table + ";");
    for (std::size_t i = 0; i < widths.size(); ++i)
      database.Execute("INSERT INTO " + table + " (Ordinal, ColWidth) VALUES (" +
                       std::to_string(i + 1) + ", " + std::to_string(widths[i]) + ");");
  }
  std::string Kept(const std::string& table) {
    std::string widths;
    auto rows = database.OpenRecordset("SELECT * FROM " + table + " ORDER BY Ordinal;");
    for (; !rows.Eof(); rows.MoveNext()) widths += rows.Text("ColWidth") + " ";
    return widths;
  }
  static std::string Shown(const Spread& grid) {
    std::string widths;
    for (int col = 1; col <= grid.MaxCols(); ++col) widths += Str(grid.ColWidth(col)) + " ";
    return widths;
  }

  test::TemporaryFolder folder;
  jet::Database database = CreateInventoryDatabase(folder / "KV_Inventory.mdb");
};

TEST_F(ColumnWidthsTest, EachScreenHasItsTable) {
  const struct {
    std::string screen, table;
  } cases[] = {{"KVI_InventorySummary", "CW_Inventory"},
               {"KVI_PGSummary", "CW_Recipes"},
               {"KVI_OrderSystem", "CW_Orders"}};
  for (const auto& c : cases) {
    test::BareScreen screen(c.screen);
    Spread grid(screen, "Spread1", 3);
    SetTable(c.table, {1000, 2000, 3000});
    LoadColumnWidths(grid, screen, database);
    EXPECT_EQ(Shown(grid), "1000 2000 3000 ") << c.screen;
    grid.SetColWidth(1, 100);
    grid.SetColWidth(2, 0);
    grid.SetColWidth(3, 151.5);
    SaveColumnWidths(grid, screen, database);
    EXPECT_EQ(Kept(c.table), "150 150 151.5 ") << "shut columns come back visible";
  }
}

TEST_F(ColumnWidthsTest, AnEmptyTableAnUnknownScreenAndForeignColumnsChangeNothing) {
  test::BareScreen summary("KVI_InventorySummary"), other("KVI_VendorSummary");
  Spread grid(summary, "Spread1", 2);
  grid.SetColWidth(1, 777);
  const std::string designed = Shown(grid);
  LoadColumnWidths(grid, other, database);
  SaveColumnWidths(grid, other, database);
  SetTable("CW_Inventory", {});
  LoadColumnWidths(grid, summary, database);
  SaveColumnWidths(grid, summary, database);
  EXPECT_EQ(Shown(grid), designed);
  EXPECT_EQ(Kept("CW_Inventory"), "");

  SetTable("CW_Inventory", {500, 600, 700});
  LoadColumnWidths(grid, summary, database);
  grid.SetColWidth(2, 650);
  SaveColumnWidths(grid, summary, database);
  EXPECT_EQ(Shown(grid) + "| " + Kept("CW_Inventory"), "500 650 | 500 650 700 ");
}

TEST_F(ColumnWidthsTest, TheResetStopsAtTheFirstEmptyTable) {
  SetTable("CW_Inventory", {500, 600});
  SetTable("CW_Recipes", {});
  SetTable("CW_Orders", {700});
  EXPECT_FALSE(ResetColumnWidths(database));
  EXPECT_EQ(Kept("CW_Inventory") + "| " + Kept("CW_Orders"), "1500 1500 | 700 ");
  SetTable("CW_Recipes", {100});
  EXPECT_TRUE(ResetColumnWidths(database));
  EXPECT_EQ(Kept("CW_Recipes") + "| " + Kept("CW_Orders"), "1500 | 1500 ");
}

}  // namespace
}  // namespace kvi
