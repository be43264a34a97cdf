#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QTableView>

#include "DesktopTest.h"

namespace kvi::test {

class GridTest : public DesktopTest {
 protected:
  void SetUp() override {
    ShowSample();
    sample.grid.SetActiveCell(1, 2);
    Table().setFocus();
    sample.TakeLog();
  }

  QTableView& Table() { return As<QTableView>(sample.grid); }
  QPoint CentreOf(int row, int col) {
    return Table().visualRect(Table().model()->index(row - 1, col - 1)).center();
  }
  std::string Where() {
    return std::to_string(sample.grid.ActiveRow()) + "," + std::to_string(sample.grid.ActiveCol());
  }
  std::string SelectedText() {
    std::string text;
    for (const Block& b : sample.grid.SelectedBlocks())
      text += "[" + std::to_string(b.row) + "," + std::to_string(b.col) + " " +
              std::to_string(b.row2) + "," + std::to_string(b.col2) + "]";
    return text;
  }
};

TEST_F(GridTest, TypingReplacesF2MendsAndEscapeRestores) {
  Type("x1");
  EXPECT_EQ(sample.grid.Text(1, 2), "1B") << "nothing is handed over before the editor ends";
  Press(Qt::Key_Return);
  EXPECT_EQ(Where(), "2,2");
  Press(Qt::Key_F2);
  Type("+");
  Press(Qt::Key_Return);
  Type("lost");
  Press(Qt::Key_Escape);
  EXPECT_EQ(sample.TakeLog(), "edit x1, edit 2B+");
  EXPECT_EQ(sample.grid.Text(3, 2), "3B");
  EXPECT_EQ(Where(), "3,2");
  EXPECT_TRUE(Table().hasFocus());
}

TEST_F(GridTest, ArrowsEndAnEditThatReplacesAndStayInOneThatMends) {
  Type("7");
  Press(Qt::Key_Right);
  EXPECT_EQ(Where(), "1,3");
  Press(Qt::Key_F2);
  Press(Qt::Key_Left);
  Type("-");
  Press(Qt::Key_Down);
  EXPECT_EQ(Where(), "2,3");
  EXPECT_EQ(sample.TakeLog(), "edit 7, edit 1-C");
}

TEST_F(GridTest, EnterInTheLastCellAdvancesPastIt) {
  sample.grid.SetActiveCell(3, 2);
  Press(Qt::Key_Return);
  EXPECT_EQ(Where(), "3,3");
  Type("end");
  Press(Qt::Key_Return);
  EXPECT_EQ(sample.TakeLog(), "edit end, past");
  Press(Qt::Key_Tab);
  EXPECT_EQ(sample.TakeLog(), "past");
}

TEST_F(GridTest, TabGoesFromTypedCellToTypedCellAndWithCtrlLeaves) {
  Press(Qt::Key_Tab);
  EXPECT_EQ(Where(), "1,3");
  Press(Qt::Key_Tab);
  EXPECT_EQ(Where(), "2,2");
  Press(Qt::Key_Backtab);
  EXPECT_EQ(Where(), "1,3");
  Press(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_FALSE(Table().hasFocus());
  EXPECT_EQ(sample.TakeLog(), "leave grid");
}

TEST_F(GridTest, ALockedCellIsNotTypedIntoAndALongTextIsBounded) {
  sample.grid.SetActiveCell(1, 1);
  Type("x");
  Press(Qt::Key_Return);
  sample.grid.SetActiveCell(1, 3);
  Type("1234567");
  Press(Qt::Key_Return);
  EXPECT_EQ(sample.grid.Text(1, 1), "1A");
  EXPECT_EQ(sample.grid.Text(1, 3), "12345");
}

TEST_F(GridTest, ACharacterOnALockedCellIsAKeyPressOfTheGridAndOnAnotherStartsTyping) {
  sample.grid.KeyPress = [this](int row, int col, const std::string& character) {
    sample.log.push_back("key " + character + " " + std::to_string(row) + "," +
                         std::to_string(col));
  };
  Type("x");
  Press(Qt::Key_Escape);
  sample.grid.SetActiveCell(2, 1);
  Type("Bb");
  Press(Qt::Key_Down);
  Press(Qt::Key_C, Qt::ControlModifier);
  Press(Qt::Key_Escape);
  EXPECT_EQ(sample.TakeLog(), "key B 2,1, key b 2,1");
  EXPECT_EQ(Where(), "3,1");
}

TEST_F(GridTest, EnterOpensTheRowOfAListThatOnlyShows) {
  sample.grid.DblClick = [this](int row, int) {
    sample.log.push_back("open " + std::to_string(row));
  };
  sample.grid.SetActiveCell(2, 1);
  Press(Qt::Key_Return);
  QTest::mouseDClick(Table().viewport(), Qt::LeftButton, {}, CentreOf(3, 2));
  EXPECT_EQ(sample.TakeLog(), "open 2, open 3");
}

TEST_F(GridTest, AHandlerThatReloadsTheGridInTheMiddleOfAnEditIsFine) {
  sample.grid.CellEdited = [this](int, int) {
    sample.grid.SetMaxRows(0);
    sample.grid.SetMaxRows(2);
    sample.grid.SetMaxCols(2);
    sample.grid.SetActiveCell(1, 1);
  };
  Type("7");
  Press(Qt::Key_Return);
  QCoreApplication::processEvents();
  EXPECT_EQ(Where(), "1,1");
  EXPECT_EQ(Table().model()->rowCount(), 2);
  EXPECT_EQ(Table().currentIndex(), Table().model()->index(0, 0));
}

TEST_F(GridTest, TheSelectionIsHandedOverInBlocksAndCopiedAsText) {
  Press(Qt::Key_Down, Qt::ShiftModifier);
  Press(Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(SelectedText(), "[1,2 2,3]");
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "1B\t1C\n2B\t2C\n");
  Press(Qt::Key_Left);
  EXPECT_EQ(SelectedText(), "");
  QApplication::clipboard()->setText("p\tq\nr\ts\n");
  sample.grid.SetActiveCell(2, 2);
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(sample.grid.BlockText({2, 2, 3, 3}), "p\tq\nr\ts\n");
  Press(Qt::Key_Delete);
  EXPECT_EQ(sample.grid.Text(2, 2), "");
}

TEST_F(GridTest, ColumnWidthsAreTwipsBothWaysAndZeroHides) {
  QHeaderView& headings = *Table().horizontalHeader();
  sample.grid.SetAlign(Block::Column(1), CellAlign::Right);
  sample.grid.SetColWidth(1, 1440);
  sample.grid.SetColWidth(2, 0);
  QCoreApplication::processEvents();
  EXPECT_EQ(headings.sectionSize(0), Table().logicalDpiX());
  EXPECT_TRUE(headings.isSectionHidden(1));
  headings.resizeSection(0, 2 * Table().logicalDpiX());
  EXPECT_EQ(sample.grid.ColWidth(1), 2880);
  sample.grid.SetColWidth(2, 720);
  QCoreApplication::processEvents();
  EXPECT_FALSE(headings.isSectionHidden(1));
}

TEST_F(GridTest, TextsTakeTheRoomToSpareAndNoStoredWidthChanges) {
  QHeaderView& headings = *Table().horizontalHeader();
  sample.grid.SetAlign(Block::Column(3), CellAlign::Right);
  for (int col = 1; col <= 3; ++col) sample.grid.SetColWidth(col, 720.0 * col);
  QCoreApplication::processEvents();
  EXPECT_EQ(headings.length(), Table().viewport()->width());
  EXPECT_NEAR(headings.sectionSize(1), 2 * headings.sectionSize(0), 2);
  EXPECT_EQ(sample.grid.ColWidth(1), 720);
  headings.resizeSection(0, headings.sectionSize(0) * 2);
  EXPECT_NEAR(sample.grid.ColWidth(1), 1440, 15);
}

TEST_F(GridTest, KeptColumnsStayInViewAndAreWhatTheMouseMeets) {
  sample.grid.KeptCols = {1, 3};
  for (int col = 1; col <= 3; ++col) sample.grid.SetColWidth(col, col == 2 ? 30000 : 1440);
  QCoreApplication::processEvents();
  // The second time for what the first one found to do.
  QCoreApplication::processEvents();
  sample.grid.SetActiveCell(1, 3);
  const int width = Table().logicalDpiX();
  EXPECT_LT(Table().columnViewportPosition(0), 0);
  const auto cellAt = [&](int x) { return Table().indexAt({x, Table().rowHeight(0) / 2}); };
  EXPECT_EQ(cellAt(width / 2).column(), 0);
  EXPECT_EQ(cellAt(width + 2).column(), 1);
  sample.grid.SetActiveCell(2, 2);
  EXPECT_GE(Table().columnViewportPosition(1), width) << "not behind what stays";
}

TEST_F(GridTest, ADigitOnALockedCellIsTypedIntoTheEntryCellAndUndoTakesItBack) {
  sample.grid.EntryCol = 3;
  sample.grid.SetKind(Block::Column(3), CellKind::Number);
  sample.grid.SetActiveCell(2, 1);
  Type("12");
  Press(Qt::Key_Return);
  EXPECT_EQ(sample.grid.Text(2, 3), "12");
  EXPECT_EQ(Where(), "3,3");
  Type("1,5");
  Press(Qt::Key_Return);
  EXPECT_EQ(sample.grid.Text(3, 3), "3C");
  EXPECT_EQ(Where(), "3,3");
  Table().setFocus();
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(sample.grid.Text(2, 3), "2C");
  EXPECT_EQ(sample.TakeLog(), "edit 12, edit 2C");
}

TEST_F(GridTest, CtrlAddsToTheSelectionAndAPlainClickEndsIt) {
  const auto click = [&](int row, Qt::KeyboardModifiers with) {
    QTest::mouseClick(Table().viewport(), Qt::LeftButton, with, CentreOf(row, 2));
  };
  click(1, {});
  click(3, Qt::ControlModifier);
  EXPECT_EQ(SelectedText(), "[1,2 1,2][3,2 3,2]");
  EXPECT_EQ(Where(), "3,2");
  click(2, {});
  EXPECT_EQ(SelectedText(), "");
}

TEST_F(GridTest, AHeadingClickSortsAndSelectsNothing) {
  QHeaderView& headings = *Table().horizontalHeader();
  QTest::mouseClick(headings.viewport(), Qt::LeftButton, {},
                    {headings.sectionViewportPosition(2) + 20, 8});
  EXPECT_EQ(sample.TakeLog(), "heading 3");
  EXPECT_EQ(SelectedText(), "");
}

TEST_F(GridTest, AListCellTakesOneOfItsChoices) {
  sample.grid.SetKind(Block::Column(2), CellKind::List);
  sample.grid.SetChoices(2, {"1B", "Walters", "Wexler", "Wexford"});
  const std::pair<std::vector<Qt::Key>, const char*> cases[] = {
      {{Qt::Key_W, Qt::Key_E, Qt::Key_X, Qt::Key_Return}, "Wexler"},
      {{Qt::Key_W, Qt::Key_E, Qt::Key_Backspace, Qt::Key_A, Qt::Key_Return}, "Walters"},
      {{Qt::Key_F2, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}, "Wexford"},
      {{Qt::Key_W, Qt::Key_Q, Qt::Key_Escape}, "Wexford"}};
  for (const auto& [keys, chosen] : cases) {
    sample.grid.SetActiveCell(1, 2);
    for (const Qt::Key key : keys) Press(key);
    QCoreApplication::processEvents();
    EXPECT_EQ(sample.grid.Text(1, 2), chosen);
  }
}

TEST_F(GridTest, AnAmountCellTakesNumbersAloneAndRoundsThem) {
  sample.grid.SetKind(Block::Column(2), CellKind::Float);
  for (const auto& [typed, kept] : {std::pair{"$1,250.505", "1250.51"}, {"abc7", "7.00"}}) {
    sample.grid.SetActiveCell(1, 2);
    Type(typed);
    Press(Qt::Key_Return);
    EXPECT_EQ(sample.grid.Text(1, 2), kept);
  }
}

TEST_F(GridTest, AnActiveCellSetByCodeIsShownAndFiresNoEcho) {
  int moves = 0;
  sample.grid.ActiveCellChanged = [&] { ++moves; };
  sample.grid.SetActiveCell(3, 3);
  EXPECT_EQ(Table().currentIndex(), Table().model()->index(2, 2));
  EXPECT_EQ(moves, 1);
  QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, CentreOf(1, 1));
  EXPECT_EQ(Where(), "1,1");
  EXPECT_EQ(moves, 2);
}

TEST_F(GridTest, HiddenWhileItIsFilledItKeepsTheFocusAndShowsWhatCame) {
  sample.grid.Visible = false;
  sample.grid.SetReDraw(false);
  sample.grid.SetMaxRows(30000);
  sample.grid.SetText(30000, 3, "last");
  sample.grid.SetReDraw(true);
  sample.grid.Visible = true;
  QCoreApplication::processEvents();
  EXPECT_TRUE(Table().isVisible());
  EXPECT_TRUE(Table().hasFocus());
  EXPECT_EQ(Table().model()->rowCount(), 30000);
  EXPECT_EQ(Table().model()->index(29999, 2).data().toString(), "last");
  EXPECT_EQ(sample.TakeLog(), "");
  sample.grid.Visible = false;
  QCoreApplication::processEvents();
  EXPECT_FALSE(Table().isVisible());
}

}  // namespace kvi::test
