#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>

#include "DesktopTest.h"

// What a screen reader is told.
namespace kvi::test {
namespace {

QAccessibleInterface& FaceOf(QObject& object) {
  return *QAccessible::queryAccessibleInterface(&object);
}

std::string Name(QAccessibleInterface& face) {
  return face.text(QAccessible::Name).toStdString();
}

using HearingTest = DesktopTest;

TEST_F(HearingTest, FieldsAreCalledByTheirLabelsAndTellTheirStates) {
  sample.remove.Caption = "+";
  sample.remove.Tip = "Add one";
  sample.fifo.SpokenName = "First in, first out";
  ShowSample();
  sample.SetCaption("Renamed");
  sample.nameCaption.Caption = "Full name:";
  EXPECT_EQ(Name(FaceOf(*desktop.WindowOf(sample))), "Renamed");
  EXPECT_EQ(Name(FaceOf(Widget(sample.name))), "Full name");
  EXPECT_EQ(FaceOf(Widget(sample.name)).relations(QAccessible::Label).size(), 1);
  EXPECT_EQ(Name(FaceOf(Widget(sample.remove))), "Add one");
  EXPECT_EQ(Widget(sample.remove).toolTip(), "Add one");
  EXPECT_EQ(Name(FaceOf(Widget(sample.fifo))), "First in, first out");

  QAccessibleInterface& category = FaceOf(Widget(sample.category));
  sample.category.Text = "Belts";
  EXPECT_EQ(Name(category), "Category");
  ASSERT_NE(category.textInterface(), nullptr);
  EXPECT_EQ(category.textInterface()->text(0, 5), "Belts");
  EXPECT_EQ(Name(FaceOf(*As<QComboBox>(sample.category).lineEdit())), "Category");
  QAccessibleInterface& unit = FaceOf(Widget(sample.unit));
  EXPECT_EQ(Name(unit), "Unit");
  sample.unit.SetListIndex(1);
  EXPECT_EQ(Name(unit), "Unit: foot");

  sample.name.Locked = true;
  sample.active.Value = true;
  sample.notes.Enabled = false;
  EXPECT_TRUE(FaceOf(Widget(sample.name)).state().readOnly);
  EXPECT_TRUE(FaceOf(Widget(sample.active)).state().checked);
  EXPECT_TRUE(FaceOf(Widget(sample.notes)).state().disabled);
  EXPECT_TRUE(FaceOf(Widget(sample.code)).state().passwordEdit);
  EXPECT_EQ(FaceOf(Widget(sample.save)).role(), QAccessible::Button);
}

TEST_F(HearingTest, AGridIsCalledByItsScreenARowByWhatStaysInViewAndAnEditorByItsColumn) {
  ShowSample();
  sample.grid.SetBackColor({2, 2, 2, 2}, kBrightRed);
  sample.grid.SetActiveCell(2, 2);
  Widget(sample.grid).setFocus();
  QAccessibleInterface& table = FaceOf(Widget(sample.grid));
  EXPECT_EQ(Name(table), "Sample screen");
  QAccessibleInterface& cell = *table.tableInterface()->cellAt(1, 1);
  EXPECT_EQ(Name(cell), "2B");
  EXPECT_EQ(cell.text(QAccessible::Description), "editable, warning");
  EXPECT_EQ(table.tableInterface()->cellAt(1, 0)->text(QAccessible::Description), "") << "locked";
  // The headings are children too: those of the columns first, then one before each row.
  EXPECT_EQ(Name(*table.child(2)), "B");
  EXPECT_EQ(Name(*table.child(8)), "2A");
  sample.grid.KeptCols = {3, 1};
  EXPECT_EQ(Name(*table.child(8)), "2C, 2A");
  Type("7");
  EXPECT_EQ(Name(FaceOf(*QApplication::focusWidget())), "B");
}

}  // namespace
}  // namespace kvi::test
