#include "labels/BinLabels.h"

#include <gtest/gtest.h>

#include "items/KVI_InventorySummary.h"
#include "labels/BarCode.h"
#include "labels/KVI_Labels.h"
#include "support/TestStockroom.h"

namespace kvi::test {
namespace {

TEST(BarCodeTest, EachKindHoldsWhatItCan) {
  const auto bars = MakeBarCode("100161", BarCodeKind::Code128);
  ASSERT_TRUE(bars);
  EXPECT_EQ(bars->width, 68) << "start, three pairs of digits, a check, the stop";
  EXPECT_EQ(bars->bars.size(), 19U);
  EXPECT_FALSE(MakeBarCode("\u0436", BarCodeKind::Code128));
  const auto square = MakeBarCode("\u0436", BarCodeKind::QR);
  ASSERT_TRUE(square);
  EXPECT_EQ(square->width, square->height);
  EXPECT_FALSE(MakeBarCode("", BarCodeKind::QR));
}

TEST(LabelSheetTest, AllLabelsOfASheetAreOnItsPaper) {
  for (const LabelSheet& sheet : LabelSheets()) {
    EXPECT_LE(sheet.left + (sheet.across - 1) * sheet.stepX + sheet.width,
              sheet.paper.width + 1e-9);
    EXPECT_LE(sheet.top + (sheet.down - 1) * sheet.stepY + sheet.height, sheet.paper.height + 1e-9);
    EXPECT_LE(sheet.width, sheet.across > 1 ? sheet.stepX : sheet.width) << sheet.name;
  }
}

TEST(LabelsTest, TheRowsOfTheListGoOnTheSheetFromItsFirstFreePlace) {
  TestStockroom stockroom;
  std::string parts =
      "inv_id | pcenter | name | location | how_purchased | optimal | re_order | "
      "BarCodeScan | active";
  for (int part = 10; part < 40; ++part)
    parts += "\n" + std::to_string(part) + " | 0 | Part " + std::to_string(part) +
             " | Bin 4 | box | 8 | 2.5 | " + (part == 12 ? "4006381333931" : "") + " | YES";
  parts += "\n40 | 0 | Part 40 of a name that is far too long for any label | | | | | " +
           std::string(30, 'w') + " | YES";
  stockroom.Fill("I_Master", parts);
  ASSERT_TRUE(stockroom.Start());
  auto& summary = stockroom.App().Get<KVI_InventorySummary>();
  auto& labels = stockroom.App().Get<KVI_Labels>();
  const auto atLabels = [&](const std::function<void()>& user) {
    stockroom.desktop.ExpectScreen("KVI_Labels", [&] {
      user();
      stockroom.user().Click(labels.exit_lab);
    });
    stockroom.user().Click(summary.labels_lab);
  };
  stockroom.desktop.ExpectScreen("KVI_InventorySummary", [&] {
    atLabels([&] {
      EXPECT_EQ(labels.StatusBar1.PanelText(1), "31 labels on 2 sheets");
      EXPECT_NE(labels.StatusBar1.PanelText(2).find(std::string(30, 'w')), std::string::npos);
      stockroom.user().Type(labels.first_place, "22");
      stockroom.user().Leave(labels.first_place);
      EXPECT_EQ(labels.first_place.Text(), "1") << "the sheet has 21";
      stockroom.user().Choose(labels.SheetCombo, 1);
      EXPECT_EQ(labels.StatusBar1.PanelText(1), "31 labels on 2 sheets");
      stockroom.user().Type(labels.first_place, "29");
      stockroom.user().Click(labels.print_lab);
      ASSERT_EQ(stockroom.desktop.documents.size(), 2U);
      const std::string first = stockroom.desktop.documents[0]->Page(1);
      EXPECT_NE(first.find("| Part 11\n"), std::string::npos) << first;
      EXPECT_EQ(first.find("| Part 12\n"), std::string::npos);
      const std::string second = stockroom.desktop.documents[1]->Page(1);
      EXPECT_NE(second.find("| 4006381333931\n"), std::string::npos) << "its own code";
      EXPECT_NE(second.find("| Par 8   Re-order 2.5\n"), std::string::npos);
      EXPECT_EQ(second.find("any label"), std::string::npos) << "shortened";
    });
    summary.Spread1.SetSelectedBlocks({Block::Row(3), {5, 1, 6, 4}});
    atLabels([&] {
      EXPECT_EQ(labels.StatusBar1.PanelText(1), "3 labels on 1 sheet");
      EXPECT_EQ(labels.StatusBar1.PanelText(2), "") << "all codes of these can be read";
    });
    stockroom.user().Click(summary.exit_lab);
  });
  stockroom.user().Click(stockroom.MainScreen().Label1);
  stockroom.desktop.AllCame();
}

}  // namespace
}  // namespace kvi::test
