#include "grids/PrintGrid.h"

#include <gtest/gtest.h>

#include <string>

#include "base/Number.h"
#include "grids/PrintCodes.h"
#include "support/BareScreen.h"
#include "support/ScriptedDesktop.h"

namespace kvi {
namespace {

constexpr double kInch = 1440;

std::string Described(const std::string& codes) {
  static const char* const aligns[] = {"left", "centre", "right"};
  std::string lines;
  for (const PrintedLine& line : ReadPrintCodes(codes, 7)) {
    for (const PrintedText& stretch : line)
      lines += "<" + std::string(aligns[static_cast<int>(stretch.align)]) + " " + stretch.fontName +
               " " + Str(stretch.fontSize) + ": " + stretch.text + ">";
    lines += "\n";
  }
  return lines;
}

TEST(PrintCodesTest, EachCodeDoesItsPartAndTheRestPrints) {
  const struct {
    const char *codes, *lines;
  } cases[] = {
      {"", ""},
      {"/fn\"Courier\"/fz\"14\"/cAcme/n/cList",
       "<centre Courier 14: Acme>\n<centre Arial 10: List>\n"},
      {"/cPage: /p", "<centre Arial 10: Page: 7>\n"},
      {"/lleft/rright", "<left Arial 10: left><right Arial 10: right>\n"},
      {"/c3/1/2026", "<centre Arial 10: 3/1/2026>\n"},
      {"A/C and//or/", "<left Arial 10: A/C and/or/>\n"},
      {"/fb1/fi0/fu\"x\"plain", "<left Arial 10: plain>\n"},
      {"/fz\"junk\"/fn\"Arial", "<left Arial 10: >\n"},
      {"one/n/nthree", "<left Arial 10: one>\n<left Arial 10: >\n<left Arial 10: three>\n"},
  };
  for (const auto& c : cases) EXPECT_EQ(Described(c.codes), c.lines) << c.codes;
  EXPECT_EQ(Described(PlainPrintText("nuts/pins/caps")), "<left Arial 10: nuts/pins/caps>\n");
}

class PrintGridTest : public testing::Test {
 protected:
  // One page's texts and shapes; widths in inches, every cell "row.col".
  void SetUpGrid(const std::vector<double>& inches, int rows) {
    grid.SetMaxCols(static_cast<int>(inches.size()));
    grid.SetMaxRows(rows);
    for (int col = 1; col <= grid.MaxCols(); ++col) {
      grid.SetColWidth(col, inches[static_cast<std::size_t>(col) - 1] * kInch);
      grid.SetHeading(col, "Col" + Str(col));
      for (int row = 1; row <= rows; ++row) grid.SetText(row, col, Str(row) + "." + Str(col));
    }
  }
  const test::RecordedDocument& Printed(const std::string& header = "",
                                        const std::string& footer = "") {
    PrintGrid(desktop, grid, {.jobName = "Job", .header = header, .footer = footer});
    EXPECT_TRUE(desktop.documents.back()->ended);
    return *desktop.documents.back();
  }
  // The texts of a page without their places.
  static std::string Texts(const test::RecordedDocument& document, int page) {
    std::string texts;
    const std::string lines = document.Page(page);
    for (std::size_t from = 0, to; (to = lines.find('\n', from)) != std::string::npos;
         from = to + 1) {
      const std::size_t bar = lines.find("| ", from);
      texts += lines.substr(bar + 2, to - bar - 2) + " ";
    }
    return texts;
  }

  test::ScriptedDesktop desktop;
  test::BareScreen screen;
  Spread grid{screen, "Spread1"};
};

TEST_F(PrintGridTest, APageShowsHeaderHeadingsRowsAndFooter) {
  SetUpGrid({2, 1.5}, 2);
  grid.SetHeading(2, "Quantity on hand");
  grid.SetText(1, 2, "1.20");
  grid.SetText(2, 2, "2.20");
  grid.SetAlign(Block::Cell(1, 2), CellAlign::Right);
  grid.SetAlign(Block::Cell(2, 2), CellAlign::Right);
  const auto& document =
      Printed("/fn\"Arial\"/fz\"14\"/cAcme Works/n/cUpdate Inventory/n/c3/1/2026", "/cPage: /p");
  EXPECT_EQ(document.jobName, "Job");
  EXPECT_EQ(document.PageCount(), 1);
  EXPECT_EQ(document.Page(1),
            "3.67 0.50 14 | Acme Works\n"
            "3.58 0.73 10 | Update Inventory\n"
            "3.92 0.90 10 | 3/1/2026\n"
            "0.54 1.19 bold 9 | Col1\n"
            "2.54 1.19 bold 9 | Quantity on hand\n"
            "0.54 1.38 9 | 1.1\n"
            "3.66 1.38 9 | 1.20\n"
            "0.54 1.57 9 | 2.1\n"
            "3.66 1.57 9 | 2.20\n"
            "3.96 10.33 10 | Page: 1\n");
  EXPECT_EQ(document.Shapes(1),
            "box 0.50 1.17 3.50 0.19 colour 7\n"
            "line 0.50 1.17 4.00 1.17\n"
            "line 0.50 1.36 4.00 1.36\n"
            "line 0.50 1.55 4.00 1.55\n"
            "line 0.50 1.74 4.00 1.74\n"
            "line 0.50 1.17 0.50 1.74\n"
            "line 2.50 1.17 2.50 1.74\n"
            "line 4.00 1.17 4.00 1.74\n");
}

TEST_F(PrintGridTest, WhatDoesNotFitTakesTheFreeRoomOfThePage) {
  SetUpGrid({1, 1}, 2);
  grid.SetText(1, 1, "Bearing, sealed, 6204");
  const auto& document = Printed();
  EXPECT_EQ(Texts(document, 1), "Col1 Col2 Bearing, sealed, 6204 1.2 2.1 2.2 ");
}

TEST_F(PrintGridTest, OnAFullPageTextsAreShortenedAndFiguresAndHeadingsWhole) {
  SetUpGrid({1, 0.5, 1, 1, 5}, 60);
  grid.SetAlign(Block::Column(2), CellAlign::Right);
  grid.SetHeading(1, "Theoretical Quantity on Hand today");
  grid.SetHeading(2, "Reconditioned");
  const std::string longName(90, 'x');
  for (int row = 1; row <= 60; ++row) grid.SetText(row, 5, longName);
  grid.SetText(1, 2, "$ 1234567.50");
  grid.SetText(2, 2, "123456789012345678901234567890");
  grid.SetText(1, 3, "1\n3");
  grid.SetText(1, 4, "9781234567890, first order of 2026");
  const std::string texts = Texts(Printed(), 1).substr(0, 300);
  EXPECT_TRUE(texts.starts_with("Theoretical Reconditioned Col3 Col4 Col5 Quantity on Hand today "))
      << texts;
  EXPECT_NE(texts.find(" $ 1234567.50 1 3 978\u2026 xxx"), std::string::npos) << texts;
  EXPECT_NE(texts.find("x\u2026 2.1 ####"), std::string::npos) << texts;
  EXPECT_EQ(desktop.documents.back()->Page(1).substr(0, 14), "0.53 0.62 bold") << "shrunk";
}

TEST_F(PrintGridTest, RoomThatSomeLeaveGoesToThoseWhoNeedIt) {
  SetUpGrid({5, 5}, 1);
  EXPECT_EQ(Texts(Printed(), 1), "Col1 Col2 1.1 1.2 ");
  EXPECT_EQ(desktop.documents.back()->Page(1).substr(0, 16), "0.54 0.62 bold 9") << "full size";
  for (const int col : {1, 2}) grid.SetText(1, col, std::string(60, 'x'));
  EXPECT_EQ(Printed().PageCount(), 1);
  EXPECT_EQ(desktop.documents.back()->Page(1).substr(0, 17), "0.53 0.62 bold 7.");
}

TEST_F(PrintGridTest, AWideListPrintsStripsThatEachTellNameAndNumber) {
  SetUpGrid({2, 4, 1, 0, 5, 6}, 70);
  grid.KeptCols = {1, 3};
  for (const int col : {2, 5, 6})
    for (int row = 1; row <= 70; ++row) grid.SetText(row, col, std::string(60, 'x'));
  const auto& document = Printed("", "/cPage: /p");
  ASSERT_EQ(document.PageCount(), 6);
  const std::string starts[] = {"Col1 Col2 Col3 1.1 ",       "Col1 Col3 Col5 1.1 1.3 ",
                                "Col1 Col3 Col6 1.1 1.3 ",   "Col1 Col2 Col3 50.1 ",
                                "Col1 Col3 Col5 50.1 50.3 ", "Col1 Col3 Col6 50.1 50.3 "};
  for (int page = 1; page <= 6; ++page) {
    const std::string texts = Texts(document, page);
    const std::string& start = starts[page - 1];
    EXPECT_EQ(texts.substr(0, start.size()), start);
    EXPECT_TRUE(texts.ends_with("Page: " + Str(page) + " ")) << texts;
  }
}

TEST_F(PrintGridTest, TheUserSeesHowFarItIsAndMayCancel) {
  SetUpGrid({4}, 120);
  Printed();
  const std::vector<std::string> told{"Job: Counting the pages, 0", "Job: Printing 3 pages, 3"};
  EXPECT_EQ(desktop.progress, told);
  for (const int page : {0, 2, 3}) {
    desktop.cancelAt = {"Printing 3 pages", page};
    PrintGrid(desktop, grid, {.jobName = "Job"});
    EXPECT_TRUE(desktop.documents.back()->killed);
    EXPECT_FALSE(desktop.documents.back()->ended);
    EXPECT_EQ(desktop.documents.back()->PageCount(), std::max(1, page)) << "no page behind it";
  }
}

TEST_F(PrintGridTest, EmptyRowsBelowTheLastTextAreLeftOut) {
  SetUpGrid({1}, 500);
  grid.ClearText({2, 1, -1, 1});
  grid.SetText(3, 1, "last");
  EXPECT_EQ(Texts(Printed(), 1), "Col1 1.1 last ");
  EXPECT_EQ(desktop.documents.back()->PageCount(), 1);
  grid.SetMaxRows(0);
  EXPECT_EQ(Texts(Printed("none"), 1), "none Col1 ");
  grid.SetColWidth(1, 0);
  EXPECT_EQ(Texts(Printed("none"), 1), "none ");
}

TEST_F(PrintGridTest, ColoursPrintUnderTheirCellsAndWarningsHaveAMark) {
  SetUpGrid({1, 1, 1}, 2);
  grid.SetBackColor(Block::Row(1), kWhite);
  grid.SetBackColor(Block::Row(2), kLightGrey);
  grid.SetBackColor(Block::Cell(2, 3), kBrightRed);
  const std::string shapes = Printed().Shapes(1);
  EXPECT_EQ(shapes.substr(0, shapes.find("line")),
            "box 0.50 0.60 3.00 0.19 colour 7\n"
            "box 0.50 0.98 2.00 0.19 colour 7\n"
            "box 2.50 0.98 1.00 0.19 colour 12\n"
            "box 2.50 0.98 0.03 0.19 colour 0\n");
}

}  // namespace
}  // namespace kvi
