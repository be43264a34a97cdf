#include "grids/Workbook.h"

#include <gtest/gtest.h>

#include "base/ErrorOf.h"
#include "grids/WorkbookItem.h"
#include "support/BareScreen.h"
#include "support/TestStockroom.h"
#include "support/Workbook.h"
#include "vendors/KVI_VendorSummary.h"

namespace kvi::test {
namespace {

TEST(WorkbookTest, TextsStayTextsAndFiguresAreNumbers) {
  const TemporaryFolder folder;
  BareScreen screen;
  Spread grid(screen, "Spread1", 5, 3);
  const char* cells[][5] = {{"00123", "hidden", "$1,234.50", "3/1/2026", "a \x01 b\nc & <d>"},
                            {"1E5", "hidden", "-0.5", "soon", "\xff"},
                            {"=1+1", "hidden", "none", "", "1/2"}};
  for (int row = 1; row <= 3; ++row)
    for (int col = 1; col <= 5; ++col) grid.SetText(row, col, cells[row - 1][col - 1]);
  for (int col = 1; col <= 5; ++col) grid.SetHeading(col, "Head" + std::to_string(col));
  grid.SetColWidth(2, 0);
  grid.SetAlign(Block::Column(3), CellAlign::Right);
  grid.SetKind(Block::Column(4), CellKind::Date);
  const std::string file = folder / "a list.xlsx";
  WriteWorkbook(file, "Parts: [all]", TableOf(grid));
  EXPECT_EQ(ReadWorkbook(file),
            "Head1|Head3|Head4|Head5\n"
            "00123|1234.5|46082|a   b\nc & <d>\n"
            "1E5|-0.5|soon|?\n"
            "=1+1|none||1/2\n");
  const std::string before = ReadFile(file);
  EXPECT_EQ(ErrorOf([&] { WriteWorkbook(folder / "none/x.xlsx", "x", TableOf(grid)); }), 75);
  EXPECT_EQ(ReadFile(file), before);
}

TEST(WorkbookTest, AScreenAsksForThePlaceAndTellsIt) {
  TestStockroom stockroom;
  stockroom.Fill("Vendor_Info", "Name | Zip\n Acme | 01234");
  ASSERT_TRUE(stockroom.Start());
  const std::string file = stockroom.folder / "vendors";
  auto& vendors = stockroom.App().Get<KVI_VendorSummary>();
  stockroom.desktop.ExpectScreen("KVI_VendorSummary", [&] {
    stockroom.desktop.ExpectFile("Export to workbook", std::nullopt);
    stockroom.user().Click(vendors.m_workbook);
    EXPECT_FALSE(std::filesystem::exists(file + ".xlsx"));
    stockroom.desktop.ExpectFile("Export to workbook", file);
    stockroom.user().Click(vendors.m_workbook);
    EXPECT_EQ(vendors.StatusBar1.PanelText(2), "Exported to " + file + ".xlsx");
    stockroom.user().Click(vendors.exit_lab);
  });
  stockroom.user().Click(stockroom.MainScreen().vendors);
  stockroom.desktop.AllCame();
  EXPECT_NE(ReadWorkbook(file + ".xlsx").find("|01234|"), std::string::npos);
}

}  // namespace
}  // namespace kvi::test
