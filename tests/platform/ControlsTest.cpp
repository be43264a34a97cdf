#include "platform/Controls.h"

#include <gtest/gtest.h>

#include "base/RunTimeError.h"
#include "platform/Gestures.h"
#include "platform/Hourglass.h"
#include "platform/Screen.h"
#include "platform/ScreenStack.h"
#include "support/ScriptedDesktop.h"

namespace kvi::test {
namespace {

class FormScreen : public Screen {
 public:
  explicit FormScreen(const std::string& called = "Form") : Screen(called) {}
  Layout Arrange() override { return Column({}); }
  void Exit() override {
    if (mayClose) CloseScreen();
  }

  bool mayClose = true;
  TextBox name{*this, "name"};
  ComboBox unit{*this, "unit"};
  ComboBox filter{*this, "filter", ComboBox::Style::ListOnly};
  OptionButton red{*this, "red", "Red", "colour"};
  OptionButton blue{*this, "blue", "Blue", "colour"};
  OptionButton big{*this, "big", "Big", "size"};
  CheckBox active{*this, "active", "Active"};
  ActionLabel save{*this, "save", "&Save"};
  ActionLabel exit_lab{*this, "exit_lab", "E&xit"};
};

class ControlsTest : public ::testing::Test {
 protected:
  ControlsTest() { stack.Show(form); }

  ScriptedDesktop desktop;
  ScreenStack stack{desktop};
  FormScreen form;
  Gestures user{stack};
};

TEST_F(ControlsTest, ATypedTextIsAChangeAndAChosenEntryIsAClick) {
  std::string log;
  form.unit.Change = [&] { log += "change:" + form.unit.Text() + " "; };
  form.unit.Click = [&] { log += "click:" + form.unit.Text() + " "; };
  form.unit.AddItem("box");
  form.unit.AddItem("case");
  user.Type(form.unit, "drum");
  user.Choose(form.unit, 1);
  user.Choose(form.unit, 1);
  EXPECT_EQ(log, "change:drum click:case ");
  EXPECT_EQ(form.unit.ListIndex(), 1);
  log.clear();
  form.unit.Clear();
  EXPECT_EQ(form.unit.Text(), "") << "emptying the list empties the text";
  EXPECT_EQ(form.unit.ListIndex(), -1);
}

TEST_F(ControlsTest, AFieldIsLeftBeforeTheActAndKnowsWhereTheKeyboardGoes) {
  std::string log;
  form.name.LostFocus = [&] {
    log += "leave for " + (form.FocusGoesTo() ? form.FocusGoesTo()->Name() : "nothing") + " ";
  };
  form.save.Click = [&] { log += "save "; };
  user.Type(form.name, "Bolt");
  user.Click(form.save);
  user.Type(form.name, "Nut");
  form.mayClose = false;
  user.CloseWindow(form);
  EXPECT_EQ(log, "leave for save save leave for nothing ");
  EXPECT_EQ(form.Focused(), &form.name) << "a refused closing gives the keyboard back";
}

TEST_F(ControlsTest, WhatBelongsToAVisitEndsWithItAndSoDoesABusyPointer) {
  user.MoveOver(form.save);
  user.Type(form.name, "Bolt");
  stack.Hide(form);
  EXPECT_EQ(form.save.ForeColor, kWhite) << "the hover colour";
  EXPECT_EQ(form.Focused(), nullptr);
  desktop.SetPointer(MousePointer::Hourglass);  // as a failed routine leaves it
  { const Hourglass busy(desktop); }
  EXPECT_EQ(desktop.Pointer(), MousePointer::Default);
}

TEST_F(ControlsTest, AListOnlyComboShowsAnEntryOrNothing) {
  form.filter.AddItem("(All)");
  form.filter.AddItem("Belts");
  form.filter.Text = "Belts";
  EXPECT_EQ(form.filter.ListIndex(), 1);
  EXPECT_THROW(form.filter.Text = "Seals", RunTimeError);
  EXPECT_EQ(form.filter.Text(), "");
  EXPECT_FALSE(user.Type(form.filter, "Belts")) << "a list-only combo takes no typing";
  EXPECT_THROW(form.filter.SetListIndex(2), RunTimeError);
}

TEST_F(ControlsTest, TurningAnOptionOnTurnsItsGroupOffAndNothingElse) {
  std::string log;
  for (OptionButton* option : {&form.red, &form.blue, &form.big})
    option->Click = [&log, option] { log += option->Name() + " "; };
  user.Choose(form.red);
  user.Choose(form.big);
  user.Choose(form.blue);
  form.blue.Value = false;
  EXPECT_EQ(log, "red big blue ");
  EXPECT_FALSE(form.red.Value);
  EXPECT_TRUE(form.big.Value);
}

TEST_F(ControlsTest, NothingHappensOnADisabledHiddenOrLockedControl) {
  int clicks = 0;
  form.save.Click = [&] { ++clicks; };
  form.save.Enabled = false;
  EXPECT_FALSE(user.Click(form.save));
  form.save.Enabled = true;
  form.save.Visible = false;
  EXPECT_FALSE(user.Click(form.save));
  form.name.Locked = true;
  EXPECT_FALSE(user.Type(form.name, "x"));
  EXPECT_EQ(clicks, 0);
  form.name.Locked = false;
  form.name.MaxLength = 3;
  user.Type(form.name, "äöüß");
  EXPECT_EQ(form.name.Text(), "äöü") << "typing stops at the length, counted in characters";
}

TEST_F(ControlsTest, TheLabelUnderTheMouseIsBrightGreenAndTheOthersRest) {
  user.MoveOver(form.save);
  EXPECT_EQ(form.save.ForeColor, kBrightGreen);
  user.MoveOver(form.exit_lab);
  EXPECT_EQ(form.save.ForeColor, kWhite);
  EXPECT_EQ(form.exit_lab.ForeColor, kBrightGreen);
  user.MoveOver(form);
  EXPECT_EQ(form.exit_lab.ForeColor, kWhite);
}

TEST_F(ControlsTest, LocksAreGivenBackBeforeEachWaitForTheUser) {
  int waits = 0;
  desktop.BeforeWait = [&] { ++waits; };
  FormScreen second("Second");
  second.exit_lab.Click = [&] { stack.Unload(second); };
  desktop.ExpectBox("text");
  desktop.ExpectInput("prompt", "1", "title");
  desktop.ExpectFile("file", std::nullopt);
  desktop.ExpectScreen("Second", [&] { user.Click(second.exit_lab); });
  desktop.MsgBox({.text = "text"});
  desktop.InputBox("prompt", "title");
  desktop.OpenFileDialog({.title = "file"});
  stack.ShowModal(second);
  EXPECT_EQ(waits, 4);
}

}  // namespace
}  // namespace kvi::test
