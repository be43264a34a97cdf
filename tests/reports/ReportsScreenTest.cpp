#include "reports/ReportStory.h"

namespace kvi::test {
namespace {

using ReportsScreenTest = ReportStory;

TEST_F(ReportsScreenTest, WhatIsTickedRunsInItsFixedOrderWithTheOptions) {
  ASSERT_TRUE(stockroom.Start());
  AtReports([&] {
    Click(Screen().print_lab);
    EXPECT_EQ(Pages(), 0) << "nothing is ticked";
    stockroom.user().Tick(Screen().r3);
    stockroom.user().Tick(Screen().r6);
    stockroom.user().Choose(Screen().sub_like);
    stockroom.user().Choose(Screen().sort_cat);
    stockroom.user().Choose(Screen().sec_id);
    stockroom.user().Type(Screen().subset, "ir");
    stockroom.user().Choose(Screen().r_fontsize, 4);
    ExpectLevels(Answer::No);
    Click(Screen().print_lab);
    ASSERT_EQ(Pages(), 2);
    EXPECT_NE(Header(1).find("Valuation Report"), std::string::npos);
    EXPECT_NE(Header(2).find("Sorted by Category"), std::string::npos);
    EXPECT_EQ(Rows(2).find("Tape"), std::string::npos) << "of no category";
    stockroom.user().Type(Screen().subset, "x");
    Print(Screen().r5);
    ASSERT_EQ(Pages(), 1);
    EXPECT_EQ(Rows(1), "") << "the header alone";
    stockroom.user().Type(Screen().subset, " ");
    stockroom.desktop.ExpectBox("Invalid 'Show Like' term (blanks not permitted)");
    Click(Screen().print_lab);
    stockroom.desktop.ExpectBox("Invalid 'Show Like' term (spaces not permitted)");
    Click(Screen().preview_lab);
    stockroom.user().Choose(Screen().sub_all);
    EXPECT_FALSE(stockroom.user().Type(Screen().subset, "y"));
    Print(Screen().r5);
    EXPECT_NE(Page(1).find(" 9 | Nut"), std::string::npos) << Page(1);
  });
  ASSERT_TRUE(stockroom.Exit());
  EXPECT_EQ(stockroom.Get("FontSize"), "4");
}

TEST_F(ReportsScreenTest, AFontSizeThatTheListHasNotIsTheUsualOne) {
  stockroom.Set("FontSize", "7");
  ASSERT_TRUE(stockroom.Start());
  AtReports([&] { EXPECT_EQ(Screen().r_fontsize.Text(), "7"); });
}

TEST_F(ReportsScreenTest, ThePreviewShowsTheFirstReportAsOneSheetAndItsPages) {
  std::string many = "inv_id | pcenter | name | active";
  for (int part = 100; part < 400; ++part)
    many += "\n" + std::to_string(part) + " | 0 | Part " + std::to_string(part) + " | YES";
  stockroom.Fill("I_Master", many);
  ASSERT_TRUE(stockroom.Start());
  auto& pages = stockroom.App().Get<KVI_ReportPages>();
  auto& sheet = Preview().sheet;
  AtReports([&] {
    stockroom.user().Tick(Screen().r3);
    stockroom.user().Tick(Screen().r5);
    ExpectLevels(Answer::Yes);
    stockroom.desktop.ExpectScreen("preview", [&] {
      const std::string text = sheet.canvas.Spoken();
      EXPECT_EQ(text.find("Page: ", text.find("Page: ") + 1), std::string::npos);
      EXPECT_NE(text.find("Part 180"), std::string::npos) << "past the end of a page";
      EXPECT_EQ(text.find("Part 230"), std::string::npos) << "cut off with the sheet";
      stockroom.user().Resize(sheet.canvas, 20000, 4000);
      EXPECT_EQ(sheet.HScroll1.Max, 0) << "never below";
      EXPECT_EQ(sheet.VScroll1.Max, 16000);
      EXPECT_EQ(sheet.VScroll1.SmallChange, 1001);
      EXPECT_EQ(sheet.VScroll1.LargeChange, 4001);
      EXPECT_TRUE(stockroom.user().Scroll(sheet.VScroll1, 5000));
      EXPECT_EQ(sheet.canvas.Top, -5000);
      EXPECT_FALSE(stockroom.user().Scroll(sheet.VScroll1, 16001));
      // What another desk deletes meanwhile stays in the report.
      stockroom.Execute("DELETE FROM I_Master WHERE inv_id = '399'");
      stockroom.desktop.ExpectScreen("KVI_ReportPages", [&] {
        EXPECT_EQ(pages.StatusBar1.PanelText(1), "Page 1 of 5");
        Click(pages.last_lab);
        EXPECT_NE(pages.sheet.canvas.Spoken().find("Page: 5"), std::string::npos);
        EXPECT_NE(pages.sheet.canvas.Spoken().find("Part 399"), std::string::npos);
        Click(pages.next_lab);
        EXPECT_EQ(pages.page_number.Text(), "5");
        stockroom.user().Type(pages.page_number, "2");
        Click(pages.back_lab);
        EXPECT_EQ(pages.page_number.Text(), "1");
        Click(pages.exit_lab);
      });
      Click(Preview().Pages);
      EXPECT_FALSE(sheet.canvas.Marks().empty()) << "not asked and drawn again";
      Click(Preview().Command1);
    });
    Click(Screen().preview_lab);
    EXPECT_EQ(Pages(), 0);
  });
}

TEST_F(ReportsScreenTest, APreviewThatCannotBeDrawnIsToldOnceAndLeavesTheSheetBlank) {
  ASSERT_TRUE(stockroom.Start());
  const auto expectBlank = [this] {
    stockroom.desktop.ExpectScreen("preview", [this] {
      EXPECT_TRUE(Preview().sheet.canvas.Marks().empty());
      EXPECT_FALSE(stockroom.user().Click(Preview().Pages));
      Click(Preview().Command1);
    });
  };
  AtReports([&] {
    stockroom.desktop.ExpectBox("This report cannot be previewed.", Answer::Ok, "Preview");
    expectBlank();
    Click(Screen().preview_lab);
    stockroom.user().Tick(Screen().r10);
    stockroom.desktop.ExpectScreen("KVI_ChooseVendors", [&] {
      stockroom.user().Type(stockroom.App().Get<KVI_ChooseVendors>().where1, "O'Neil");
      Click(stockroom.App().Get<KVI_ChooseVendors>().exit_lab);
    });
    stockroom.desktop.ExpectBox(
        "3075 Syntax error (missing operator, or characters behind the end) in query expression "
        "'SELECT * FROM I_Master where active = 'YES' and where1 LIKE 'O'Neil' and pcenter = 0  "
        "and pcenter = 0 ORDER BY w1_id, name '.");
    expectBlank();
    Click(Screen().preview_lab);
  });
}

}  // namespace
}  // namespace kvi::test
