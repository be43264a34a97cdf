#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTabWidget>

#include "DesktopTest.h"

namespace kvi::test {

using AdaptersTest = DesktopTest;

TEST_F(AdaptersTest, WhatIsTypedFiresChangeOncePerKeyAndWhatIsAssignedOnceInAll) {
  ShowSample();
  auto& field = As<QLineEdit>(sample.name);
  field.setFocus();
  Type("ab");
  EXPECT_EQ(sample.TakeLog(), "enter name, name=a, name=ab");
  sample.name.Text = "Bearing";
  EXPECT_EQ(field.text(), "Bearing");
  sample.name.Text = "Bearing";
  EXPECT_EQ(sample.TakeLog(), "name=Bearing");

  auto& notes = As<QPlainTextEdit>(sample.notes);
  notes.setFocus();
  Type("x");
  sample.notes.Text = "one\ntwo";
  EXPECT_EQ(notes.toPlainText(), "one\ntwo");
  EXPECT_EQ(sample.TakeLog(), "leave name, notes=x, notes=one\ntwo");
}

TEST_F(AdaptersTest, AHandlerMayMendTheTextThatIsBeingTyped) {
  ShowSample();
  sample.name.Change = [this] {
    if (sample.name.Text() == "ab") sample.name.Text = "AB!";
  };
  auto& field = As<QLineEdit>(sample.name);
  field.setFocus();
  Type("abc");
  EXPECT_EQ(field.text(), "AB!c");
  EXPECT_EQ(sample.name.Text(), "AB!c");
}

TEST_F(AdaptersTest, TypingStopsAtTheBoundAndAnAssignedTextDoesNot) {
  ShowSample();
  auto& field = As<QLineEdit>(sample.code);
  field.setFocus();
  Type("12345");
  EXPECT_EQ(sample.code.Text(), "1234");
  EXPECT_EQ(field.displayText(), "****");
  sample.code.Text = "123456";
  EXPECT_EQ(field.text(), "123456");
}

TEST_F(AdaptersTest, ALockedOrDisabledFieldTakesNothing) {
  ShowSample();
  sample.name.Locked = true;
  auto& field = As<QLineEdit>(sample.name);
  field.setFocus();
  Type("a");
  EXPECT_EQ(field.text(), "");
  sample.name.Locked = false;
  Type("a");
  EXPECT_EQ(sample.name.Text(), "a");

  for (Control* control :
       {static_cast<Control*>(&sample.save), static_cast<Control*>(&sample.remove),
        static_cast<Control*>(&sample.active)}) {
    control->Enabled = false;
    Click(Widget(*control));
    EXPECT_FALSE(Widget(*control).isEnabled()) << control->Name();
  }
  EXPECT_EQ(sample.TakeLog(), "enter name, name=a");
}

TEST_F(AdaptersTest, AComboTellsTypingFromChoosing) {
  ShowSample();
  auto& category = As<QComboBox>(sample.category);
  EXPECT_EQ(category.count(), 3);
  category.setFocus();
  Type("P");
  Press(Qt::Key_Up);
  EXPECT_EQ(sample.TakeLog(), "category=Pumps, category:Belts") << "it goes on from what was typed";
  sample.category.SetListIndex(2);
  EXPECT_EQ(category.currentText(), "Pumps");
  sample.category.Text = "Belts";
  EXPECT_EQ(category.currentText(), "Belts");
  EXPECT_EQ(sample.TakeLog(), "category:Pumps, category=Belts");
  // Neither Enter nor leaving with a text that is an entry is a choice.
  Press(Qt::Key_Return);
  Press(Qt::Key_Tab);
  EXPECT_EQ(sample.TakeLog(), "");
  sample.category.Clear();
  EXPECT_EQ(category.count(), 0);
  EXPECT_EQ(category.currentText(), "");
}

TEST_F(AdaptersTest, TypedLettersAreCompletedFromTheListAndAnOwnValueStaysPossible) {
  ShowSample();
  auto& category = As<QComboBox>(sample.category);
  const struct {
    const char* typed;
    std::vector<Qt::Key> then;
    const char* log;
  } cases[] = {
      {"be", {}, "category=Bearings"},
      {"bel", {}, "category=Bearings, category=Belts"},
      {"be", {Qt::Key_Delete}, "category=Bearings, category=Be"},
      {"be", {Qt::Key_Backspace, Qt::Key_Backspace}, "category=Bearings, category=Be, category=B"},
      {"bex", {}, "category=Bearings, category=Bex"},
      {"pumps", {Qt::Key_Home, Qt::Key_A}, "category=Pumps, category=aPumps"},
  };
  for (const auto& test : cases) {
    sample.category.Text = "";
    category.setFocus();
    sample.TakeLog();
    Type(test.typed);
    for (const Qt::Key key : test.then) Press(key);
    EXPECT_EQ(sample.TakeLog(), test.log);
    EXPECT_EQ(category.currentText(), ToQt(sample.category.Text));
  }
}

TEST_F(AdaptersTest, AListOnlyComboGoesToTheEntryThatLettersSpell) {
  ShowSample();
  auto& unit = As<QComboBox>(sample.unit);
  EXPECT_EQ(unit.currentIndex(), -1);
  for (const char* entry : {"reel", "ring"}) sample.unit.AddItem(entry);
  unit.setFocus();
  Type("fri");  // no "fr": the search begins anew, and narrows
  EXPECT_EQ(sample.TakeLog(), "unit:foot, unit:roll, unit:ring");
  Type("rr");
  EXPECT_EQ(sample.TakeLog(), "unit:roll, unit:reel") << "from entry to entry";
  sample.unit.Clear();
  sample.unit.AddItem("box");
  EXPECT_EQ(unit.currentIndex(), -1);
  EXPECT_EQ(unit.currentText(), "");
}

TEST_F(AdaptersTest, AListIsChosenByKeysAndOpenedByEnter) {
  ShowSample();
  auto& list = As<QListWidget>(sample.groups);
  list.setFocus();
  sample.groups.SetListIndex(0);
  Press(Qt::Key_Down);
  Press(Qt::Key_Return);
  EXPECT_EQ(sample.TakeLog(), "groups:Pump rebuild, groups:Line 4, groups double");
  sample.groups.Clear();
  EXPECT_EQ(list.count(), 0);
  EXPECT_EQ(sample.TakeLog(), "");
}

TEST_F(AdaptersTest, ChecksAndOptionsFollowBothWays) {
  ShowSample();
  auto& active = As<QCheckBox>(sample.active);
  Click(active);
  sample.active.Value = false;
  EXPECT_FALSE(active.isChecked());
  EXPECT_EQ(sample.TakeLog(), "active=1, active=0");

  sample.fifo.Value = true;
  EXPECT_TRUE(As<QRadioButton>(sample.fifo).isChecked());
  Click(Widget(sample.average));
  EXPECT_FALSE(sample.fifo.Value);
  EXPECT_FALSE(As<QRadioButton>(sample.fifo).isChecked());
  sample.average.Value = false;
  EXPECT_FALSE(As<QRadioButton>(sample.average).isChecked());
  EXPECT_EQ(sample.TakeLog(), "fifo, average");
}

TEST_F(AdaptersTest, ArrowsPassThroughOptionsAndSpaceOrEnterChooses) {
  ShowSample();
  sample.fifo.Value = true;
  Widget(sample.fifo).setFocus();
  sample.TakeLog();
  Press(Qt::Key_Down);
  EXPECT_TRUE(Widget(sample.average).hasFocus());
  EXPECT_EQ(sample.TakeLog(), "");
  Press(Qt::Key_Space);
  Press(Qt::Key_Down);
  EXPECT_TRUE(Widget(sample.fifo).hasFocus());
  Press(Qt::Key_Return);
  EXPECT_EQ(sample.TakeLog(), "average, fifo");
}

TEST_F(AdaptersTest, TabsMenusStatusAndCaptionsFollow) {
  ShowSample();
  auto& tabs = As<QTabWidget>(sample.tabs);
  sample.tabs.Tab = 1;
  EXPECT_EQ(tabs.currentIndex(), 1);
  tabs.setCurrentIndex(0);
  EXPECT_EQ(sample.TakeLog(), "tab 1, tab 0");

  ScreenWindow& window = *desktop.WindowOf(sample);
  window.findChild<QAction*>("byName")->trigger();
  EXPECT_TRUE(sample.byName.Checked);
  EXPECT_TRUE(window.findChild<QAction*>("byName")->isChecked());
  EXPECT_TRUE(window.findChild<QAction*>("line")->isSeparator());
  sample.print.Enabled = false;
  EXPECT_FALSE(window.findChild<QAction*>("print")->isEnabled());

  const int empty =
      Widget(sample.status).sizeHint().expandedTo(Widget(sample.status).minimumSize()).height();
  sample.status.SetPanelText(1, "1 of 3 records");
  EXPECT_EQ(Widget(sample.status).findChild<QLabel*>()->text(), "1 of 3 records");
  EXPECT_EQ(Widget(sample.status).sizeHint().height(), empty) << "takes no room from the content";
  EXPECT_EQ(As<QLabel>(sample.heading).text(), "Spare parts & tools");
  sample.SetCaption("Other");
  EXPECT_EQ(window.windowTitle(), "Other");
  EXPECT_EQ(window.WidgetOf(sample.unplaced), nullptr);
}

TEST_F(AdaptersTest, APictureIsReadAnewAndOnlyWhatCanBeDecodedIsOne) {
  ShowSample();
  const std::string path = folder / "belt.tif";
  for (const QColor& color : {QColor(Qt::red), QColor(Qt::blue)}) {
    QImage image(40, 40, QImage::Format_RGB32);
    image.fill(color);
    ASSERT_TRUE(image.save(ToQt(path), "TIFF"));
    EXPECT_TRUE(desktop.CanShowPicture(path));
    sample.picture.Path = "";
    sample.picture.Path = path;
    const QImage shown = Widget(sample.picture).grab().toImage();
    EXPECT_EQ(shown.pixelColor(shown.rect().center()), color);
  }
  WriteFile(folder / "cut.gif", "GIF89a");
  EXPECT_FALSE(desktop.CanShowPicture(folder / "cut.gif"));
}

TEST_F(AdaptersTest, LabelsHideWithTheirFields) {
  ShowSample();
  const auto shownTexts = [this] {
    int shown = 0;
    for (const QLabel* label : desktop.WindowOf(sample)->findChildren<QLabel*>())
      if (label->isVisible() && label->text() == "Code:") ++shown;
    return shown;
  };
  EXPECT_EQ(shownTexts(), 1);
  sample.code.Visible = false;
  EXPECT_FALSE(Widget(sample.code).isVisible());
  EXPECT_EQ(shownTexts(), 0);
}

TEST_F(AdaptersTest, ColoursFollowTheSchemeUnlessTheyCannotBeRead) {
  ShowSample();
  sample.SetBackColor(kBlue);
  const QColor ink = As<QCheckBox>(sample.active).palette().color(QPalette::WindowText);
  EXPECT_EQ(ink, QColor(Qt::white));
  sample.name.BackColor = kRed;
  EXPECT_GT(As<QLineEdit>(sample.name).palette().color(QPalette::Base).lightness(), 200)
      << "a soft tint behind black text";
  sample.name.ForeColor = kWhite;
  EXPECT_EQ(As<QLineEdit>(sample.name).palette().color(QPalette::Base), QColor(0x80, 0, 0));
}

}  // namespace kvi::test
