#include "platform/Spread.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/ErrorOf.h"
#include "base/Number.h"
#include "support/BareScreen.h"

namespace kvi {
namespace {

class TellTale : public ControlView {
 public:
  void PropertyChanged(Property property) override {
    told_ += property == Property::Cells ? "cells " : "active ";
  }
  void TakeFocus() override {}
  std::string Told() { return std::exchange(told_, ""); }

 private:
  std::string told_;
};

class SpreadTest : public testing::Test {
 protected:
  // Fills the grid with lines of cells parted by blanks; "_" is an empty cell.
  void Fill(const std::vector<std::string>& lines) {
    grid.SetMaxRows(0);
    grid.SetMaxRows(static_cast<int>(lines.size()));
    for (int row = 1; row <= grid.MaxRows(); ++row) {
      const std::string& line = lines[static_cast<std::size_t>(row) - 1];
      std::size_t from = 0;
      for (int col = 1; from < line.size(); ++col) {
        const std::size_t to = std::min(line.find(' ', from), line.size());
        const std::string text = line.substr(from, to - from);
        grid.SetText(row, col, text == "_" ? "" : text);
        from = to + 1;
      }
    }
  }
  std::string Column(int col) const {
    std::string texts;
    for (int row = 1; row <= grid.MaxRows(); ++row) {
      const std::string& text = grid.Text(row, col);
      texts += (row > 1 ? " " : "") + (text.empty() ? "_" : text);
    }
    return texts;
  }
  std::string BackColors(int col) const {
    std::string colors;
    for (int row = 0; row <= grid.MaxRows(); ++row)
      colors += (row > 0 ? " " : "") + Str(grid.Format(row, col).BackColor);
    return colors;
  }
  std::string Selection() const {
    std::string text;
    for (const Block& b : grid.SelectedBlocks())
      text += "[" + Str(b.row) + "," + Str(b.col) + " " + Str(b.row2) + "," + Str(b.col2) + "]";
    return text;
  }

  test::BareScreen screen;
  Spread grid{screen, "Spread1", 3};
};

TEST_F(SpreadTest, OutsideCellsReadAsNothingAndRefuseWriting) {
  grid.SetMaxRows(2);
  grid.SetText(2, 3, "inside");
  EXPECT_EQ(grid.Text(2, 3), "inside");
  EXPECT_EQ(grid.Text(3, 1) + grid.Text(1, 4) + grid.Text(-1, 1) + grid.Text(1, 0), "");
  EXPECT_EQ(grid.Format(3, 1), CellFormat{});
  EXPECT_EQ(grid.ColWidth(4) + grid.RowHeight(3), 0);

  const std::vector<std::function<void()>> writes = {
      [&] { grid.SetText(3, 1, "x"); },
      [&] { grid.SetHeading(0, "x"); },
      [&] { grid.SetLock(Block::Column(4), true); },
      [&] { grid.SetColWidth(4, 100); },
      [&] { grid.SetRowHeight(3, 100); },
      [&] { grid.DeleteRow(3); },
      [&] { grid.InsertRow(4); },
      [&] { grid.Sort(4, true); },
  };
  for (std::size_t i = 0; i < writes.size(); ++i) EXPECT_EQ(ErrorOf(writes[i]), 381) << i;
  EXPECT_EQ(ErrorOf([&] { grid.SetMaxRows(-1); }), 380);
}

TEST_F(SpreadTest, TheLastFormatSetHoldsAmongCellRowAndColumn) {
  grid.SetMaxRows(3);
  grid.SetBackColor(Block::Cell(2, 1), 12);
  EXPECT_EQ(BackColors(1), "-1 -1 12 -1");
  grid.SetBackColor(Block::Row(2), 7);
  EXPECT_EQ(BackColors(1), "-1 -1 7 -1") << "a row over its cells";
  grid.SetBackColor(Block::Column(1), 11);
  EXPECT_EQ(BackColors(1), "-1 11 11 11") << "a column over its rows and cells";
  EXPECT_EQ(BackColors(2), "-1 -1 7 -1");
  grid.SetBackColor(Block::Row(3), 15);
  grid.SetBackColor(Block::Cell(1, 1), 12);
  EXPECT_EQ(BackColors(1), "-1 12 11 15") << "rows and cells over an earlier column";
  grid.SetBackColor(Block::All(), 8);
  EXPECT_EQ(BackColors(1) + " " + BackColors(3), "-1 8 8 8 -1 8 8 8");
  grid.SetForeColor(Block::Cell(1, 1), 4);
  EXPECT_EQ(grid.Format(1, 1).BackColor, 8) << "each attribute by itself";
  grid.SetBackColor({2, 2, 3, 3}, 1);
  EXPECT_EQ(BackColors(2) + " " + BackColors(1), "-1 8 1 1 -1 8 8 8");
}

TEST_F(SpreadTest, AColumnsFormatHoldsForRowsThatComeLater) {
  grid.SetLock(Block::All(), true);
  grid.SetLock({1, 2, -1, 3}, false);
  grid.SetMaxRows(1);
  grid.SetBackColor(Block::Row(1), 7);
  grid.SetMaxRows(0);
  grid.SetMaxRows(2);
  EXPECT_TRUE(grid.Format(2, 1).Lock);
  EXPECT_FALSE(grid.Format(2, 2).Lock);
  EXPECT_EQ(grid.Format(1, 1).BackColor, kToolkitColor) << "a row's format goes with the row";
  EXPECT_TRUE(grid.Format(0, 2).Lock) << "headings stay locked";
  grid.SetBackColor({0, 1, 0, -1}, 7);
  EXPECT_EQ(BackColors(2), "7 -1 -1");
}

TEST_F(SpreadTest, ABlockOfNoRowsDoesNothing) {
  grid.SetHeading(1, "Name");
  grid.SetBackColor({1, 1, grid.MaxRows(), 3}, 12);
  grid.ClearText({1, 1, grid.MaxRows(), 3});
  grid.ClearText(Block::All());
  EXPECT_EQ(BackColors(1), "-1");
  EXPECT_EQ(grid.Text(0, 1), "Name");
}

TEST_F(SpreadTest, ClearTextLeavesFormatsAndHeadings) {
  Fill({"a b c", "d e f"});
  grid.SetHeading(2, "Head");
  grid.SetBackColor(Block::Cell(2, 2), 12);
  grid.ClearText({2, 2, -1, -1});
  EXPECT_EQ(grid.BlockText({0, 1, -1, -1}), "\tHead\t\na\tb\tc\nd\t\t\n");
  EXPECT_EQ(grid.Format(2, 2).BackColor, 12);
}

TEST_F(SpreadTest, SortIsStableWithoutCaseAndLeavesBlankKeysBelow) {
  const std::vector<std::string> rows = {"pump 1", "_ 2", "Bolt 3", "Pump 4", "bolt 5"};
  Fill(rows);
  grid.Sort(1, true);
  EXPECT_EQ(Column(1) + " | " + Column(2), "Bolt bolt pump Pump _ | 3 5 1 4 2");
  Fill(rows);
  grid.Sort(1, false);
  EXPECT_EQ(Column(1) + " | " + Column(2), "pump Pump Bolt bolt _ | 1 4 3 5 2");
  Fill({"Zange 1", "étrier 2", "ende 3"});
  grid.Sort(1, true);
  EXPECT_EQ(Column(2), "3 2 1") << "accents stand beside their letters, as in a file";
}

TEST_F(SpreadTest, NumberCellsSortByValueAndTextsAsText) {
  Fill({"10.0", "9.5", "-3.0", "100.0"});
  grid.Sort(1, true);
  EXPECT_EQ(Column(1), "-3.0 10.0 100.0 9.5");
  grid.SetKind(Block::Column(1), CellKind::Number);
  grid.Sort(1, true);
  EXPECT_EQ(Column(1), "-3.0 9.5 10.0 100.0");
  grid.Sort(1, false);
  EXPECT_EQ(Column(1), "100.0 10.0 9.5 -3.0");
  grid.Sort(1, true, [](const std::string& a, const std::string& b) {
    return static_cast<int>(a.size()) - static_cast<int>(b.size());
  });
  EXPECT_EQ(Column(1), "9.5 10.0 -3.0 100.0");
}

TEST_F(SpreadTest, FormatsAndHeightsGoWithTheirRow) {
  Fill({"c", "a", "b"});
  grid.SetBackColor(Block::Cell(1, 1), 12);
  grid.SetBackColor(Block::Row(2), 7);
  grid.SetRowHeight(1, 600);
  grid.Sort(1, true);
  EXPECT_EQ(BackColors(1), "-1 7 -1 12");
  EXPECT_EQ(grid.RowHeight(3), 600);
  grid.InsertRow(1);
  EXPECT_EQ(Column(1), "_ a b c");
  EXPECT_EQ(BackColors(1), "-1 -1 7 -1 12");
  grid.DeleteRow(3);
  grid.InsertRow(4);
  EXPECT_EQ(Column(1), "_ a c _");
  EXPECT_EQ(BackColors(1), "-1 -1 7 12 -1");
}

TEST_F(SpreadTest, TheActiveCellStaysInsideAndIsGoneWithTheLastRow) {
  int fired = 0;
  grid.ActiveCellChanged = [&] { ++fired; };
  grid.SetActiveCell(1, 1);
  EXPECT_EQ(grid.ActiveRow(), 0) << "there is no row yet";
  EXPECT_EQ(fired, 0);
  Fill({"a", "b", "c"});
  EXPECT_EQ(grid.ActiveRow(), 0) << "rows alone make no cell active";
  grid.SetActiveCell(9, 9);
  EXPECT_EQ(Str(grid.ActiveRow()) + "," + Str(grid.ActiveCol()), "3,3");
  grid.SetActiveCell(3, 3);
  EXPECT_EQ(fired, 1) << "once: the second time it stood there";
  grid.DeleteRow(1);
  EXPECT_EQ(grid.ActiveRow(), 2);
  grid.SetMaxCols(2);
  EXPECT_EQ(grid.ActiveCol(), 2);
  grid.SetMaxRows(0);
  EXPECT_EQ(grid.ActiveRow(), 0);
}

TEST_F(SpreadTest, WithReDrawOffTheViewIsToldOnceAtTheEnd) {
  TellTale view;
  grid.Attach(&view);
  Fill({"a b", "c d"});
  view.Told();
  grid.SetText(1, 1, "a");
  EXPECT_EQ(view.Told(), "") << "the same text is no change";
  const auto revision = grid.Revision();
  grid.SetReDraw(false);
  grid.SetText(1, 1, "x");
  grid.SetBackColor(Block::Row(1), 7);
  grid.SetMaxRows(5);
  grid.SetActiveCell(2, 1);
  grid.SetReDraw(false);
  grid.SetReDraw(true);
  EXPECT_EQ(view.Told(), "") << "the outer routine is not done";
  grid.SetReDraw(true);
  EXPECT_EQ(view.Told(), "cells active ");
  EXPECT_GT(grid.Revision(), revision);
  grid.SetReDraw(false);
  grid.SetReDraw(true);
  EXPECT_EQ(view.Told(), "") << "nothing changed in between";
}

TEST_F(SpreadTest, TheSelectionIsBlocksFromTheTopThatShareNoRow) {
  grid.SetMaxRows(9);
  const struct {
    std::vector<Block> set;
    std::string selection;
  } cases[] = {
      {{{4, 2, 4, 2}}, ""},
      {{{7, 1, 8, 3}, {2, 1, 2, 3}}, "[2,1 2,3][7,1 8,3]"},
      {{{5, 3, 3, 1}}, "[3,1 5,3]"},
      {{{8, 1, -1, -1}}, "[8,1 9,3]"},
      {{{4, 1, 4, 1}, {4, 3, 4, 3}}, "[4,1 4,3]"},
      {{{2, 1, 5, 1}, {4, 2, 7, 2}, {8, 1, 8, 1}}, "[2,1 7,2][8,1 8,1]"},
      {{{0, 0, 2, 9}, {12, 1, 14, 3}}, "[1,1 2,3]"},
  };
  for (const auto& c : cases) {
    grid.SetSelectedBlocks(c.set);
    EXPECT_EQ(Selection(), c.selection);
  }
  grid.DeleteRow(9);
  EXPECT_EQ(Selection(), "");
}

TEST_F(SpreadTest, ColumnsThatGoTakeTheirTextsAndFormatsAlong) {
  Fill({"a b c"});
  grid.SetBackColor(Block::Cell(1, 3), 12);
  grid.SetColWidth(3, 0);
  grid.SetMaxCols(2);
  grid.SetMaxCols(3);
  EXPECT_EQ(grid.Text(1, 3), "");
  EXPECT_EQ(grid.Format(1, 3), CellFormat{});
  EXPECT_EQ(grid.ColWidth(3), Spread::kDefaultColWidth);
}

TEST_F(SpreadTest, TypingIsCutAndRefusedByTheCellsFormat) {
  Fill({"a b c"});
  std::string edited;
  grid.CellEdited = [&](int row, int col) { edited += Str(row) + "," + Str(col) + " "; };
  grid.SetTypeEditLen(Block::Column(1), 3);
  grid.SetLock(Block::Column(2), true);
  grid.SetKind(Block::Column(3), CellKind::List);
  grid.SetChoices(3, {"each", "box"});
  EXPECT_TRUE(grid.TypeText(1, 1, "größer"));
  EXPECT_TRUE(grid.TypeText(1, 1, "größer"));
  EXPECT_FALSE(grid.TypeText(1, 2, "x"));
  EXPECT_FALSE(grid.TypeText(1, 3, "x"));
  EXPECT_TRUE(grid.TypeText(1, 3, "box"));
  EXPECT_FALSE(grid.TypeText(0, 1, "x"));
  EXPECT_EQ(grid.BlockText(Block::All()), "grö\tb\tbox\n");
  EXPECT_EQ(edited, "1,1 1,3 ");
  grid.SetText(1, 1, "code's own");
  EXPECT_EQ(grid.Text(1, 1), "code's own");
}

TEST_F(SpreadTest, UndoTakesTypingBackAGestureAtATimeWhereverItsRowWent) {
  Fill({"1 2 3", "4 5 6", "7 8 9"});
  grid.SetKind(Block::Column(3), CellKind::Number);
  grid.CellEdited = [&](int row, int) { grid.SetText(row, 1, "edited"); };
  grid.TypeText(2, 2, "a");
  grid.PasteText(1, 2, "b\t1\nc\t2 each\n");
  grid.TypeNothing({{3, 2, 3, 3}});
  EXPECT_EQ(grid.BlockText({1, 2, -1, 3}), "b\t1\nc\t6\n\t\n");
  EXPECT_EQ(grid.TypedRows(), 3);
  grid.Sort(3, false);
  EXPECT_EQ(grid.BlockText({1, 2, -1, 3}), "c\t6\nb\t1\n\t\n");
  grid.SetText(2, 3, "the code's own");
  EXPECT_TRUE(grid.Undo());
  EXPECT_TRUE(grid.Undo());
  EXPECT_EQ(grid.BlockText({1, 2, -1, 3}), "a\t6\n2\tthe code's own\n8\t9\n");
  EXPECT_EQ(grid.TypedRows(), 1);
  EXPECT_TRUE(grid.Undo());
  EXPECT_FALSE(grid.Undo());
  EXPECT_EQ(grid.Text(1, 2), "5");
  grid.TypeText(1, 2, "x");
  grid.SetMaxRows(2);
  EXPECT_FALSE(grid.Undo()) << "the list is another one";
}

TEST_F(SpreadTest, TheNextTypedCellPassesLockedHiddenAndStaticOnes) {
  Fill({"1 2 3", "4 5 6", "7 8 9"});
  const auto next = [&](int row, int col, int step) {
    const auto cell = grid.NextTyped(row, col, step);
    return cell ? Str(cell->first) + "," + Str(cell->second) : std::string("none");
  };
  grid.SetLock(Block::Column(1), true);
  grid.SetColWidth(2, 0);
  EXPECT_EQ(next(1, 1, 1), "1,3");
  EXPECT_EQ(next(1, 3, 1), "2,3");
  EXPECT_EQ(next(1, 3, -1), "none");
  grid.SetKind(Block::All(), CellKind::Static);
  EXPECT_EQ(next(1, 1, 1), "none");
  grid.SetKind(Block::Cell(3, 3), CellKind::Edit);
  EXPECT_EQ(next(1, 1, 1), "3,3");
}

TEST_F(SpreadTest, PasteSkipsLockedAndHiddenCellsAndStaysInside) {
  Fill({"1 2 3", "4 5 6", "7 8 9"});
  std::string edited;
  grid.CellEdited = [&](int row, int col) { edited += Str(row) + "," + Str(col) + " "; };
  grid.SetLock(Block::Cell(2, 1), true);
  grid.PasteText(2, 1, "a\tb\tc\td\r\ne\t8\n_\nf\n");
  EXPECT_EQ(grid.BlockText(Block::All()), "1\t2\t3\n4\tb\tc\ne\t8\t9\n");
  EXPECT_EQ(edited, "2,2 2,3 3,1 ");
  grid.SetColWidth(2, 0);
  grid.PasteText(1, 1, "x\ty");
  EXPECT_EQ(Column(1) + " " + Column(2) + " " + Column(3), "x 4 e 2 b 8 y c 9");
  grid.SetText(1, 1, "two\nlines\tand tab");
  EXPECT_EQ(grid.BlockText(Block::Row(1)), "two lines and tab\ty\n");
}

}  // namespace
}  // namespace kvi
