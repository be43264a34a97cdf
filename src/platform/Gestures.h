#pragma once

#include <string>
#include <vector>

namespace kvi {

class ActionLabel;
class Button;
class Canvas;
class CheckBox;
class ComboBox;
class Control;
class ListBox;
class MenuItem;
class OptionButton;
class Screen;
class ScrollBar;
class ScreenStack;
class Spread;
struct Block;
class TabStrip;
class TextBox;
struct Block;

// What a user can do to a screen. The Qt adapters and the tests' scripted user both act through
// these, so that a test meets the same rules as a person: nothing happens on a disabled or hidden
// control, a locked box takes no typing, a cell's text is cut to its length. Each gesture enters
// through the stack's event guard and returns whether it was possible.
//
// An act on a control takes the keyboard there first: the control before is left, then this one
// entered. Where a window shows the screen, its widgets have done so by then.
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
  // False where the key has no use of its own.
  bool PressEnter(TextBox& box);
  bool PressEscape(TextBox& box);

  bool Scroll(ScrollBar& bar, int value);  // within the bar's range
  // The window of a sheet shows so many twips of it.
  void Resize(Canvas& canvas, int width, int height);

  bool Enter(Control& control);
  // The keyboard goes away from a control that has it, to none other.
  bool Leave(Control& control);
  bool MoveOver(Control& control);
  void MoveOver(Screen& screen);

  bool GoToCell(Spread& grid, int row, int col);
  // Blocks of cells by dragging and with Ctrl; the active cell stays.
  bool Select(Spread& grid, std::vector<Block> blocks);
  // One character typed on the active cell; a cell that takes typing keeps it for itself.
  bool PressKey(Spread& grid, const std::string& character);
  bool PressEnter(Spread& grid);  // on the active cell; false where it only goes on
  bool TypeIntoCell(Spread& grid, int row, int col, const std::string& text);
  bool DoubleClick(Spread& grid, int row, int col);
  bool ClickHeading(Spread& grid, int col);
  bool AdvancePastLastCell(Spread& grid);
  bool Paste(Spread& grid, const std::string& text);
  bool ClearCells(Spread& grid, const std::vector<Block>& blocks);
  bool Undo(Spread& grid);

  // By the window's own box: the field is left, then the screen exits.
  void CloseWindow(Screen& screen);

 private:
  // Acts on a control that can be reached, once it has the keyboard.
  template <class Act>
  bool Do(Control& control, Act act);
  // Acts while no control has the keyboard; the one that had it gets it back.
  template <class Act>
  void Away(Screen& screen, const Control* goesTo, Act act);
  void LeaveFocused(Screen& screen, const Control* goesTo);

  ScreenStack& stack_;
};

}  // namespace kvi
