#pragma once

#include <string>
#include <vector>

#include "platform/Controls.h"
#include "platform/Screen.h"
#include "platform/Spread.h"

namespace kvi::test {

// One control of each kind; every event writes a word into the log.
class SampleScreen : public Screen {
 public:
  SampleScreen();

  Layout Arrange() override;
  void Activate() override { log.push_back("activate"); }
  void Exit() override {
    log.push_back("exit");
    if (mayClose) CloseScreen();
  }
  int RestingColor() const override { return resting; }
  void Unload() override { log.push_back("unload"); }
  bool TakesWholeDisplay() const override { return isList; }

  // The log in one line; it begins anew.
  std::string TakeLog();

  std::vector<std::string> log;
  bool mayClose = true;
  int resting = kWhite;
  bool isList = false;

  Label heading{*this, "heading", "Spare parts && tools"};
  ActionLabel save{*this, "save", "&Save"};
  ActionLabel second{*this, "second", "&Sort"};
  Label nameCaption{*this, "nameCaption", "&Name:"};
  TextBox name{*this, "name"};
  TextBox notes{*this, "notes"};
  TextBox code{*this, "code"};
  TextBox unplaced{*this, "unplaced"};
  ComboBox category{*this, "category"};
  ComboBox unit{*this, "unit", ComboBox::Style::ListOnly};
  ListBox groups{*this, "groups"};
  CheckBox active{*this, "active", "&Active"};
  OptionButton fifo{*this, "fifo", "FIFO"};
  OptionButton average{*this, "average", "Average"};
  Button remove{*this, "remove", "&Remove"};
  PictureBox picture{*this, "picture"};
  TabStrip tabs{*this, "tabs", {"General", "More"}};
  Menu file{*this, "file", "&File"};
  MenuItem print{file, "print", "&Print"};
  MenuItem line{file, "line", "-"};
  MenuItem byName{file, "byName", "By name"};
  StatusBar status{*this, "status"};
  Spread grid{*this, "grid", 3, 3};

 private:
  void LogEvents();
};

}  // namespace kvi::test
