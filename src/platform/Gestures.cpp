#include "platform/Gestures.h"

#include <utility>

#include "base/Text.h"
#include "platform/Canvas.h"
#include "platform/Controls.h"
#include "platform/Screen.h"
#include "platform/ScreenStack.h"
#include "platform/Spread.h"

namespace kvi {

namespace {

bool Reachable(const ScreenStack& stack, const Control& control) {
  return control.Visible && control.Enabled && stack.Top() == &control.Owner();
}

template <class Event, class... Arguments>
void Fire(const Event& event, Arguments... arguments) {
  if (event) event(arguments...);
}

}  // namespace

template <class Act>
bool Gestures::Do(Control& control, Act act) {
  if (!Reachable(stack_, control)) return false;
  if (control.View() == nullptr) Enter(control);
  // Leaving the field before may have taken this one away.
  if (!Reachable(stack_, control)) return false;
  stack_.Guard(act);
  return true;
}

template <class Act>
void Gestures::Away(Screen& screen, const Control* goesTo, Act act) {
  Control* const before = screen.focused_;
  LeaveFocused(screen, goesTo);
  act();
  if (before != nullptr && screen.focused_ == nullptr) Enter(*before);
}

void Gestures::LeaveFocused(Screen& screen, const Control* goesTo) {
  Control* const left = std::exchange(screen.focused_, nullptr);
  if (left == nullptr || !Reachable(stack_, *left)) return;
  screen.focusGoesTo_ = goesTo;
  stack_.Guard([&] { Fire(left->LostFocus); });
  screen.focusGoesTo_ = nullptr;
}

bool Gestures::Click(ActionLabel& label) {
  return Do(label, [&] { Fire(label.Click); });
}

bool Gestures::Click(Button& button) {
  return Do(button, [&] { Fire(button.Click); });
}

bool Gestures::Click(MenuItem& item) {
  if (!Reachable(stack_, item)) return false;
  Away(item.Owner(), &item, [&] { stack_.Guard([&] { Fire(item.Click); }); });
  return true;
}

bool Gestures::Tick(CheckBox& box) {
  return Do(box, [&] { box.Value = !box.Value; });
}

bool Gestures::Choose(OptionButton& option) {
  return Do(option, [&] { option.Value = true; });
}

bool Gestures::Choose(ComboBox& combo, int index) {
  if (index < 0 || index >= combo.ListCount()) return false;
  return Do(combo, [&] { combo.SetListIndex(index); });
}

bool Gestures::Choose(ListBox& list, int index) {
  if (index < 0 || index >= list.ListCount()) return false;
  return Do(list, [&] { list.SetListIndex(index); });
}

bool Gestures::Choose(TabStrip& strip, int tab) {
  return Do(strip, [&] {
    if (tab != strip.Tab && (!strip.MayShow || strip.MayShow(tab))) strip.Tab = tab;
  });
}

bool Gestures::Scroll(ScrollBar& bar, int value) {
  if (value < 0 || value > bar.Max) return false;
  return Do(bar, [&] { bar.Value = value; });
}

void Gestures::Resize(Canvas& canvas, int width, int height) {
  stack_.Guard([&] { canvas.SetInside(width, height); });
}

bool Gestures::DoubleClick(ListBox& list) {
  return Do(list, [&] { Fire(list.DblClick); });
}

bool Gestures::Type(TextBox& box, const std::string& text) {
  if (box.Locked) return false;
  const bool bounded = box.MaxLength > 0;
  return Do(box, [&] {
    box.Text = bounded ? Left(text, static_cast<std::size_t>(box.MaxLength)) : text;
  });
}

bool Gestures::Type(ComboBox& combo, const std::string& text) {
  if (combo.GetStyle() != ComboBox::Style::Editable) return false;
  return Do(combo, [&] { combo.Text = text; });
}

bool Gestures::PressEnter(TextBox& box) {
  return box.EnterPressed && Do(box, [&] { box.EnterPressed(); });
}

bool Gestures::PressEscape(TextBox& box) {
  return box.EscapePressed && Do(box, [&] { box.EscapePressed(); });
}

bool Gestures::Enter(Control& control) {
  Screen& screen = control.Owner();
  if (!Reachable(stack_, control)) return false;
  if (screen.focused_ == &control) return true;
  LeaveFocused(screen, &control);
  // Whoever was left may have given the keyboard to another control, or shown another screen.
  if (screen.focused_ != nullptr || !Reachable(stack_, control)) return false;
  screen.focused_ = &control;
  stack_.Guard([&] { Fire(control.GotFocus); });
  return true;
}

bool Gestures::Leave(Control& control) {
  if (control.Owner().focused_ != &control || !Reachable(stack_, control)) return false;
  LeaveFocused(control.Owner(), nullptr);
  return true;
}

bool Gestures::MoveOver(Control& control) {
  if (!Reachable(stack_, control)) return false;
  stack_.Guard([&] {
    if (control.Kind() == ControlKind::ActionLabel)
      control.Owner().Hover(static_cast<ActionLabel&>(control));
    Fire(control.MouseMove);
  });
  return true;
}

void Gestures::MoveOver(Screen& screen) {
  if (stack_.Top() == &screen) stack_.Guard([&] { screen.clear_labels(); });
}

bool Gestures::GoToCell(Spread& grid, int row, int col) {
  if (row < 1 || row > grid.MaxRows()) return false;
  return Do(grid, [&] { grid.GoToCell(row, col); });
}

bool Gestures::Select(Spread& grid, std::vector<Block> blocks) {
  return Do(grid, [&] { grid.SetSelectedBlocks(std::move(blocks)); });
}

bool Gestures::PressKey(Spread& grid, const std::string& character) {
  const int row = grid.ActiveRow(), col = grid.ActiveCol();
  if (grid.TakesTyping(row, col)) return false;
  return Do(grid, [&] { Fire(grid.KeyPress, row, col, character); });
}

bool Gestures::PressEnter(Spread& grid) {
  bool used = false;
  Do(grid,
     [&] { used = grid.EnterPressed && grid.EnterPressed(grid.ActiveRow(), grid.ActiveCol()); });
  return used;
}

bool Gestures::TypeIntoCell(Spread& grid, int row, int col, const std::string& text) {
  if (row < 1 || row > grid.MaxRows()) return false;
  bool taken = false;
  Do(grid, [&] { taken = grid.TypeText(row, col, text); });
  return taken;
}

bool Gestures::DoubleClick(Spread& grid, int row, int col) {
  return Do(grid, [&] { Fire(grid.DblClick, row, col); });
}

bool Gestures::ClickHeading(Spread& grid, int col) {
  return Do(grid, [&] { Fire(grid.HeadingClick, col); });
}

bool Gestures::AdvancePastLastCell(Spread& grid) {
  return Do(grid, [&] { Fire(grid.AdvancedPastLastCell); });
}

bool Gestures::Paste(Spread& grid, const std::string& text) {
  if (grid.ActiveRow() < 1) return false;
  return Do(grid, [&] { grid.PasteText(grid.ActiveRow(), grid.ActiveCol(), text); });
}

bool Gestures::ClearCells(Spread& grid, const std::vector<Block>& blocks) {
  return Do(grid, [&] { grid.TypeNothing(blocks); });
}

bool Gestures::Undo(Spread& grid) {
  bool undone = false;
  Do(grid, [&] { undone = grid.Undo(); });
  return undone;
}

void Gestures::CloseWindow(Screen& screen) {
  if (stack_.Top() != &screen) return;
  Away(screen, nullptr, [&] { stack_.CloseByUser(screen); });
}

}  // namespace kvi
