#pragma once

#include <string>

namespace kvi {

class ActionLabel;
class Button;
class CheckBox;
class ComboBox;
class Control;
class ListBox;
class MenuItem;
class OptionButton;
class Screen;
class ScreenStack;
class Spread;
class TabStrip;
class TextBox;

// What a user can do to a screen. The Qt adapters and the tests' scripted user both act through
// these, so that a test meets the same rules as a person: nothing happens on a disabled or hidden
// control, a locked box takes no typing, a cell's text is cut to its length. Each gesture enters
// through the stack's event guard and returns whether it was possible.
class Gestures {
 public:
  explicit Gestures(ScreenStack& stack) : stack_(stack) {}

  bool Click(ActionLabel& label);
  bool Click(Button& button);
  bool Click(MenuItem& item);
  bool Tick(CheckBox& box);  // turns it over
  bool Choose(OptionButton& option);
  bool Choose(ComboBox& combo, int index);
  bool Choose(ListBox& list, int index);
  bool Choose(TabStrip& strip, int tab);
  bool DoubleClick(ListBox& list);
  bool Type(TextBox& box, const std::string& text);  // the whole new text
  bool Type(ComboBox& combo, const std::string& text);

  bool Enter(Control& control);
  bool Leave(Control& control);
  bool MoveOver(Control& control);
  void MoveOver(Screen& screen);

  bool GoToCell(Spread& grid, int row, int col);
  // One character typed on the active cell; a cell that takes typing keeps it for itself.
  bool PressKey(Spread& grid, const std::string& character);
  bool TypeIntoCell(Spread& grid, int row, int col, const std::string& text);
  bool DoubleClick(Spread& grid, int row, int col);
  bool ClickHeading(Spread& grid, int col);
  bool AdvancePastLastCell(Spread& grid);
  bool Paste(Spread& grid, const std::string& text);

  void CloseWindow(Screen& screen);

 private:
  ScreenStack& stack_;
};

}  // namespace kvi
