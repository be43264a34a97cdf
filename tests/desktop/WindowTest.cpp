#include <QAbstractButton>
#include <QAction>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QWheelEvent>

#include "DesktopTest.h"
#include "base/ErrorOf.h"

namespace kvi::test {

namespace {

// A small modal screen that a test opens over the sample.
class Question : public Screen {
 public:
  explicit Question(const std::string& name) : Screen(name) {
    exit_lab.Cancel = true;
    exit_lab.Click = [this] { CloseScreen(); };
  }
  Layout Arrange() override {
    return Column({Actions({&exit_lab}), Field("Number:", number), Field("Answer:", answer)});
  }
  void Activate() override {
    if (SetUp) SetUp();
  }
  std::function<void()> SetUp;
  ActionLabel exit_lab{*this, "exit_lab", "E&xit"};
  TextBox number{*this, "number"};
  TextBox answer{*this, "answer"};
};

// Five tiles in two columns, called by their numbers.
class Pad : public Screen {
 public:
  Pad() : Screen("Pad") {
    for (int number = 1; number <= 5; ++number) {
      const std::string name = std::to_string(number);
      tiles_.push_back(std::make_unique<ActionLabel>(*this, name, name));
      tiles_.back()->Click = [this, name] { pressed += name; };
    }
  }
  Layout Arrange() override {
    std::vector<Control*> tiles;
    for (const auto& tile : tiles_) tiles.push_back(tile.get());
    return Tiles(2, tiles);
  }
  std::string pressed;

 private:
  std::vector<std::unique_ptr<ActionLabel>> tiles_;
};

}  // namespace

class WindowTest : public DesktopTest {
 protected:
  QAbstractButton& Button(const Control& control) { return As<QAbstractButton>(control); }
};

TEST_F(WindowTest, AnActionIsPressedByMouseEnterSpaceAndAccessKeyAtOnce) {
  ShowSample();
  Click(Widget(sample.save));
  Press(Qt::Key_Return);
  Press(Qt::Key_Space);
  EXPECT_EQ(sample.TakeLog(), "save, save, save");
  Widget(sample.name).setFocus();
  Press(Qt::Key_S, Qt::AltModifier);
  Press(Qt::Key_R, Qt::AltModifier);
  EXPECT_EQ(sample.TakeLog(),
            "enter name, leave name, save, enter name, leave name, remove, enter name");
  sample.save.Click = [this] { sample.notes.SetFocus(); };
  Press(Qt::Key_S, Qt::AltModifier);
  EXPECT_TRUE(Widget(sample.notes).hasFocus()) << "the action sent it there";
  Press(Qt::Key_A, Qt::AltModifier);
  EXPECT_TRUE(Widget(sample.active).hasFocus()) << "a box that is ticked is where the user is";
  EXPECT_EQ(sample.TakeLog(), "leave name, active=1");
}

TEST_F(WindowTest, TabsChangeFromAnywhereAsByAClickOnThem) {
  ShowSample();
  sample.grid.SetActiveCell(1, 2);
  Widget(sample.grid).setFocus();
  Type("7");
  Press(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(sample.TakeLog(), "edit 7, leave grid, tab 1");
  EXPECT_TRUE(Widget(sample.grid).hasFocus());
  Press(Qt::Key_PageDown, Qt::ControlModifier);
  sample.tabs.MayShow = [](int) { return false; };
  Press(Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(sample.TakeLog(), "leave grid") << "refused";
  sample.tabs.MayShow = nullptr;
  Widget(sample.notes).setFocus();
  Press(Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(sample.TakeLog(), "leave grid, tab 0");
  Widget(sample.remove).setFocus();
  Press(Qt::Key_PageDown, Qt::ControlModifier);
  QTabBar* bar = As<QTabWidget>(sample.tabs).tabBar();
  EXPECT_TRUE(bar->hasFocus()) << "the tab has no field";
  const QPointF there = bar->rect().center();
  QWheelEvent wheel(there, bar->mapToGlobal(there), {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
  QApplication::sendEvent(bar, &wheel);
  EXPECT_EQ(sample.tabs.Tab(), 1) << "the wheel is no click";
}

TEST_F(WindowTest, OnTilesTheArrowsGoWhereTheyPointAndDigitsPress) {
  Pad pad;
  stack.Show(pad);
  ASSERT_TRUE(QTest::qWaitForWindowActive(desktop.WindowOf(pad)));
  std::string way;
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Right, Qt::Key_Down, Qt::Key_Left,
                            Qt::Key_Up, Qt::Key_Up}) {
    Press(key);
    way += QApplication::focusWidget()->objectName().toStdString();
  }
  EXPECT_EQ(way, "3444311");
  Press(Qt::Key_5);
  Press(Qt::Key_2);
  EXPECT_EQ(pad.pressed, "52");
  stack.Unload(pad);
}

TEST_F(WindowTest, AltWithALetterThatIsNoAccessKeyTypesNothing) {
  ShowSample();
  sample.grid.SetActiveCell(1, 2);
  for (Control* field : std::initializer_list<Control*>{&sample.name, &sample.notes,
                                                        &sample.category, &sample.grid}) {
    Widget(*field).setFocus();
    sample.TakeLog();
    Press(Qt::Key_J, Qt::AltModifier);
    Press(Qt::Key_F2);
    Press(Qt::Key_J, Qt::AltModifier);
    Press(Qt::Key_Return);
    EXPECT_EQ(sample.TakeLog(), field == &sample.notes ? "notes=\n" : "") << field->Name();
  }
}

TEST_F(WindowTest, TheFocusBeginsWhereOneCanTypeAndPassesOverWhatIsLocked) {
  ShowSample();
  Question form("Form");
  form.number.Text = "7";
  form.SetUp = [&] { form.number.Locked = true; };
  Later([&] {
    EXPECT_TRUE(QTest::qWaitFor([&] { return desktop.WindowOf(form)->isActiveWindow(); }));
    EXPECT_TRUE(Widget(form.answer).hasFocus());
    Press(Qt::Key_Tab);
    EXPECT_TRUE(Widget(form.exit_lab).hasFocus());
    Press(Qt::Key_Escape);
    EXPECT_EQ(desktop.WindowOf(form), nullptr) << "Escape is its Exit";
    stack.Unload(form);
  });
  stack.ShowModal(form);
}

TEST_F(WindowTest, AListHasTheFocusAgainAfterTheScreenThatAnActionOpened) {
  sample.isList = true;
  ShowSample();
  Question form("Form");
  sample.save.Click = [&] { stack.ShowModal(form); };
  Later([&] { stack.Unload(form); });
  Click(Widget(sample.save));
  EXPECT_EQ(desktop.WindowOf(sample)->focusWidget(), &Widget(sample.grid));
}

TEST_F(WindowTest, EnterAndEscapeInAFieldPressTheButtonsMadeForThem) {
  sample.remove.Default = true;
  ShowSample();
  Widget(sample.name).setFocus();
  sample.TakeLog();
  Press(Qt::Key_Return);
  EXPECT_EQ(sample.TakeLog(), "remove");
  Press(Qt::Key_Escape);
  EXPECT_EQ(sample.TakeLog(), "");
  sample.remove.Cancel = true;
  Press(Qt::Key_Escape);
  EXPECT_EQ(sample.TakeLog(), "remove");
}

TEST_F(WindowTest, F1AsksForTheManualOfTheScreenInFrontAndLeavesWhatIsTyped) {
  std::string asked;
  desktop.HelpWanted = [&](const Screen& screen) { asked += screen.Name() + "."; };
  ShowSample();
  Widget(sample.name).setFocus();
  QTest::keyClicks(&Widget(sample.name), "Bo");
  QTest::keyClick(&Widget(sample.name), Qt::Key_F1);
  QTest::keyClicks(&Widget(sample.name), "lt");
  EXPECT_EQ(sample.name.Text(), "Bolt");
  Question question("Question");
  stack.Show(question);
  ASSERT_TRUE(QTest::qWaitForWindowActive(desktop.WindowOf(question)));
  Widget(question.number).setFocus();
  QTest::keyClick(&Widget(question.number), Qt::Key_F1);
  EXPECT_EQ(asked, "Sample.Question.");
}

TEST_F(WindowTest, AccessKeysAreGivenOutOnceInAWindow) {
  ShowSample();
  EXPECT_EQ(Button(sample.save).text(), "&Save");
  EXPECT_EQ(Button(sample.second).text(), "Sort");
  sample.save.Caption = "Kee&p";
  sample.second.Caption = "&Sort now";
  EXPECT_EQ(Button(sample.second).text(), "&Sort now");
  EXPECT_EQ(Button(sample.active).text(), "&Active");
}

TEST_F(WindowTest, TheHoverColourComesAndGoesWithTheMouse) {
  ShowSample();
  QTest::mouseMove(&Widget(sample.save));
  QCoreApplication::processEvents();
  EXPECT_EQ(sample.save.ForeColor, kBrightGreen);
  QTest::mouseMove(&Widget(sample.name));
  QCoreApplication::processEvents();
  EXPECT_EQ(sample.save.ForeColor, kWhite);
}

TEST_F(WindowTest, AnEventElsewhereComesAfterTheEditAndTheLeaving) {
  ShowSample();
  sample.grid.SetActiveCell(1, 2);
  struct {
    std::function<void()> press;
    std::string event;
  } const cases[] = {
      {[this] { Click(Widget(sample.save)); }, "save"},
      {[] { Press(Qt::Key_R, Qt::AltModifier); }, "remove"},
      {[this] {
         QTabBar& bar = *As<QTabWidget>(sample.tabs).tabBar();
         QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(1).center());
       },
       "tab 1"},
      {[this] { desktop.WindowOf(sample)->findChild<QAction*>("print")->trigger(); }, "print"},
  };
  for (const auto& test : cases) {
    Widget(sample.grid).setFocus();
    Type(sample.grid.Text(1, 2) == "7" ? "8" : "7");
    test.press();
    EXPECT_EQ(sample.TakeLog(), "edit " + sample.grid.Text(1, 2) + ", leave grid, " + test.event);
  }
}

TEST_F(WindowTest, AClickThatBringsABoxIsDoneAfterTheAnswer) {
  ShowSample();
  sample.name.LostFocus = [this] { desktop.MsgBox({.text = "No such name."}); };
  QWindow* window = desktop.WindowOf(sample)->windowHandle();
  const QPoint there = Widget(sample.save).mapTo(desktop.WindowOf(sample), QPoint(10, 10));
  for (const bool sentBack : {false, true}) {
    Widget(sample.name).setFocus();
    sample.TakeLog();
    Later([&] {
      QTest::mouseRelease(window, Qt::LeftButton, {}, there);
      if (sentBack) sample.name.SetFocus();
      QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return);
    });
    QTest::mousePress(window, Qt::LeftButton, {}, there);
    QCoreApplication::processEvents();
    EXPECT_EQ(sample.TakeLog().find("save") != std::string::npos, !sentBack);
    EXPECT_FALSE(Button(sample.save).isDown());
  }
  sample.name.LostFocus = nullptr;
}

TEST_F(WindowTest, TheCloseBoxCommitsAsksAndMayBeRefused) {
  ShowSample();
  sample.grid.SetActiveCell(1, 2);
  Widget(sample.grid).setFocus();
  Type("9");
  sample.mayClose = false;
  desktop.WindowOf(sample)->close();
  EXPECT_EQ(sample.TakeLog(), "edit 9, leave grid, exit");
  ASSERT_NE(desktop.WindowOf(sample), nullptr);
  EXPECT_TRUE(desktop.WindowOf(sample)->isVisible());
  sample.mayClose = true;
  desktop.WindowOf(sample)->close();
  EXPECT_EQ(sample.TakeLog(), "leave grid, exit, unload");
  EXPECT_EQ(desktop.WindowOf(sample), nullptr);
}

TEST_F(WindowTest, ModalScreensNestAndTheOneBelowComesBack) {
  ShowSample();
  Question first("First"), second("Second");
  sample.save.Click = [&] { stack.ShowModal(first); };
  first.exit_lab.Click = [&] { stack.ShowModal(second); };
  second.exit_lab.Click = [&] { stack.Unload(second); };
  Later([&] {
    Later([&] {
      Click(Widget(sample.remove));  // behind a modal screen: nothing happens
      Click(Widget(second.exit_lab));
      Later([&] { stack.Unload(first); });
    });
    Click(Widget(first.exit_lab));
    sample.log.push_back("second closed");
  });
  Click(Widget(sample.save));
  EXPECT_EQ(sample.TakeLog(), "second closed, activate");
  EXPECT_EQ(desktop.WindowOf(first), nullptr);
  EXPECT_TRUE(desktop.WindowOf(sample)->isActiveWindow());
}

TEST_F(WindowTest, AScreenMayCloseTheOneBelowItWhoseClickOpenedIt) {
  ShowSample();
  Question over("Over");
  sample.save.Click = [&] {
    stack.ShowModal(over);
    sample.log.push_back("back");
  };
  Later([&] {
    stack.Unload(sample);
    stack.Unload(over);
  });
  Click(Widget(sample.save));
  EXPECT_EQ(sample.TakeLog(), "unload, back");
  EXPECT_EQ(desktop.WindowOf(sample), nullptr);
}

TEST_F(WindowTest, AFailureThatNobodyHandlesBecomesABox) {
  ShowSample();
  sample.save.Click = [] { throw RunTimeError(11); };
  QString text;
  Later([&] {
    auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    text = box->text();
    box->button(QMessageBox::Ok)->click();
  });
  Click(Widget(sample.save));
  EXPECT_EQ(text, "11 Division by zero");
}

TEST_F(WindowTest, TheEndOfTheProcessLeavesAllLoops) {
  ShowSample();
  Question over("Over");
  over.exit_lab.Click = [] { throw EndOfProcess{}; };
  sample.save.Click = [&] {
    stack.ShowModal(over);
    ADD_FAILURE() << "the routine goes on after the end";
  };
  Later([&] {
    Later([&] { Click(Widget(over.exit_lab)); });
    Click(Widget(sample.save));
  });
  EXPECT_EQ(desktop.RunEventLoop(), 0);
  EXPECT_EQ(desktop.WindowOf(sample), nullptr);
}

TEST_F(WindowTest, ABoxWaitsAlsoWhereTheOnlyScreenIsClosedBeforeTheMainLoop) {
  ShowSample();
  stack.Hide(sample);
  Later([] {
    if (auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget()))
      box->button(QMessageBox::Yes)->click();
  });
  EXPECT_EQ(desktop.MsgBox({.text = "Convert it now?", .buttons = Buttons::YesNo}), Answer::Yes);
}

TEST_F(WindowTest, ABoxIsAnsweredByItsButtonsAndEscapeOnlyWhereNothingIsLost) {
  struct {
    Buttons buttons;
    std::vector<Qt::Key> keys;
    Answer answer;
    std::optional<Answer> byDefault = std::nullopt;
  } const cases[] = {{Buttons::YesNo, {Qt::Key_Escape, Qt::Key_Return}, Answer::Yes},
                     {Buttons::YesNo, {Qt::Key_Return}, Answer::No, Answer::No},
                     {Buttons::YesNoCancel, {Qt::Key_Escape}, Answer::Cancel},
                     {Buttons::OkCancel, {Qt::Key_Escape}, Answer::Cancel},
                     {Buttons::Ok, {Qt::Key_Escape}, Answer::Ok}};
  ShowSample();
  desktop.SetPointer(MousePointer::Hourglass);
  for (const auto& test : cases) {
    Later([&] {
      EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "a box shows the usual pointer";
      auto* box = QApplication::activeModalWidget();
      if (test.buttons == Buttons::YesNo) box->close();
      for (const Qt::Key key : test.keys) QTest::keyClick(box, key);
    });
    EXPECT_EQ(
        desktop.MsgBox({.text = "Sure?", .buttons = test.buttons, .defaultAnswer = test.byDefault}),
        test.answer);
  }
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
}

TEST_F(WindowTest, TheInputBoxGivesTheTextOrNothing) {
  ShowSample();
  for (const bool accept : {true, false}) {
    Later([accept] {
      auto* dialog = dynamic_cast<QDialog*>(QApplication::activeModalWidget());
      QTest::keyClicks(dialog->findChild<QLineEdit*>(), "42");
      QTest::keyClick(dialog, accept ? Qt::Key_Return : Qt::Key_Escape);
    });
    const auto answer = desktop.InputBox("New part number:", "Part", "7");
    EXPECT_EQ(answer, accept ? std::optional<std::string>("42") : std::nullopt);
  }
}

TEST_F(WindowTest, AProgramIsFoundByPathOrNameAndItsAbsenceIs53) {
  const std::string touched = folder / "with blank";
  desktop.StartProgram("touch \"" + touched + "\"");
  EXPECT_TRUE(QTest::qWaitFor([&] { return QFileInfo::exists(ToQt(touched)); }));
  for (const char* line : {"no-such-program x", "/no/such/program", ""})
    EXPECT_EQ(ErrorOf([&] { desktop.StartProgram(line); }), 53) << line;
  EXPECT_FALSE(desktop.OpenHelp(folder / "manual.chm"));
}

TEST_F(WindowTest, EverythingFitsIntoASmallDisplay) {
  ShowSample();
  ScreenWindow& window = *desktop.WindowOf(sample);
  window.resize(640, 360);
  QCoreApplication::processEvents();
  EXPECT_EQ(window.size(), QSize(640, 360));
  EXPECT_TRUE(desktop.SavePicture(sample, folder / "sample.png", 640, 480));
  EXPECT_GT(QFileInfo(ToQt(folder / "sample.png")).size(), 1000);
}

}  // namespace kvi::test
