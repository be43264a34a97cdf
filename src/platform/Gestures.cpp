#include "platform/Gestures.h"

#include "base/Text.h"
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

bool Gestures::Click(ActionLabel& label) {
  if (!Reachable(stack_, label)) return false;
  stack_.Guard([&] { Fire(label.Click); });
  return true;
}

bool Gestures::Click(Button& button) {
  if (!Reachable(stack_, button)) return false;
  stack_.Guard([&] { Fire(button.Click); });
  return true;
}

bool Gestures::Click(MenuItem& item) {
  if (!Reachable(stack_, item)) return false;
  stack_.Guard([&] { Fire(item.Click); });
  return true;
}

bool Gestures::Tick(CheckBox& box) {
  if (!Reachable(stack_, box)) return false;
  stack_.Guard([&] { box.Value = box.Value == 0 ? 1 : 0; });
  return true;
}

bool Gestures::Choose(OptionButton& option) {
  if (!Reachable(stack_, option)) return false;
  stack_.Guard([&] { option.Value = true; });
  return true;
}

bool Gestures::Choose(ComboBox& combo, int index) {
  if (!Reachable(stack_, combo) || index < 0 || index >= combo.ListCount()) return false;
  stack_.Guard([&] { combo.SetListIndex(index); });
  return true;
}

bool Gestures::Choose(ListBox& list, int index) {
  if (!Reachable(stack_, list) || index < 0 || index >= list.ListCount()) return false;
  stack_.Guard([&] { list.SetListIndex(index); });
  return true;
}

bool Gestures::Choose(TabStrip& strip, int tab) {
  if (!Reachable(stack_, strip)) return false;
  stack_.Guard([&] { strip.Tab = tab; });
  return true;
}

bool Gestures::DoubleClick(ListBox& list) {
  if (!Reachable(stack_, list)) return false;
  stack_.Guard([&] { Fire(list.DblClick); });
  return true;
}

bool Gestures::Type(TextBox& box, const std::string& text) {
  if (!Reachable(stack_, box) || box.Locked) return false;
  const bool bounded = box.MaxLength > 0;
  stack_.Guard(
      [&] { box.Text = bounded ? Left(text, static_cast<std::size_t>(box.MaxLength)) : text; });
  return true;
}

bool Gestures::Type(ComboBox& combo, const std::string& text) {
  if (!Reachable(stack_, combo) || combo.GetStyle() != ComboBox::Style::Editable) return false;
  stack_.Guard([&] { combo.Text = text; });
  return true;
}

bool Gestures::Enter(Control& control) {
  if (!Reachable(stack_, control)) return false;
  stack_.Guard([&] { Fire(control.GotFocus); });
  return true;
}

bool Gestures::Leave(Control& control) {
  if (!Reachable(stack_, control)) return false;
  stack_.Guard([&] { Fire(control.LostFocus); });
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
  if (!Reachable(stack_, grid) || row < 1 || row > grid.MaxRows()) return false;
  stack_.Guard([&] {
    grid.Row = row;
    grid.Col = col;
    grid.SetActiveCell(row, col);
  });
  return true;
}

bool Gestures::PressKey(Spread& grid, const std::string& character) {
  const int row = grid.ActiveRow(), col = grid.ActiveCol();
  if (!Reachable(stack_, grid) || grid.TakesTyping(row, col)) return false;
  stack_.Guard([&] { Fire(grid.KeyPress, row, col, character); });
  return true;
}

bool Gestures::TypeIntoCell(Spread& grid, int row, int col, const std::string& text) {
  if (!Reachable(stack_, grid) || row < 1 || row > grid.MaxRows()) return false;
  bool taken = false;
  stack_.Guard([&] { taken = grid.TypeText(row, col, text); });
  return taken;
}

bool Gestures::DoubleClick(Spread& grid, int row, int col) {
  if (!Reachable(stack_, grid)) return false;
  stack_.Guard([&] { Fire(grid.DblClick, row, col); });
  return true;
}

bool Gestures::ClickHeading(Spread& grid, int col) {
  if (!Reachable(stack_, grid)) return false;
  stack_.Guard([&] { Fire(grid.HeadingClick, col); });
  return true;
}

bool Gestures::AdvancePastLastCell(Spread& grid) {
  if (!Reachable(stack_, grid)) return false;
  stack_.Guard([&] { Fire(grid.AdvancedPastLastCell); });
  return true;
}

bool Gestures::Paste(Spread& grid, const std::string& text) {
  if (!Reachable(stack_, grid) || grid.ActiveRow() < 1) return false;
  stack_.Guard([&] { grid.PasteText(grid.ActiveRow(), grid.ActiveCol(), text); });
  return true;
}

void Gestures::CloseWindow(Screen& screen) {
  if (stack_.Top() == &screen) stack_.CloseByUser(screen);
}

}  // namespace kvi
