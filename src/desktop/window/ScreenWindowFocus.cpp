#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QTimer>

#include "desktop/controls/ActionButton.h"
#include "desktop/window/ScreenWindow.h"
#include "platform/Controls.h"
#include "platform/Gestures.h"

// Where the keyboard is in a window, and the keys that are the window's own.
namespace kvi {

namespace {

// How much a control wants to be the first one; 0 is not at all. What is typed into comes before
// what is chosen from: a choice that nobody made shall not be left either.
int FocusRank(const Control& control, bool isList) {
  switch (control.Kind()) {
    case ControlKind::Canvas:
      return 4;
    case ControlKind::Spread:
      return isList ? 4 : 3;
    case ControlKind::TextBox:
      return static_cast<const TextBox&>(control).Locked ? 0 : 3;
    case ControlKind::ComboBox:
      return static_cast<const ComboBox&>(control).GetStyle() == ComboBox::Style::Editable ? 3 : 2;
    case ControlKind::ListBox:
    case ControlKind::OptionButton:
    case ControlKind::CheckBox:
      return 2;
    case ControlKind::ActionLabel:
    case ControlKind::Button:
      return 1;
    default:
      return 0;
  }
}

}  // namespace

int ScreenWindow::FocusRankOf(const ControlAdapter& adapter) const {
  const QWidget* widget = adapter.Widget();
  if (widget == nullptr || !adapter.Tied().Enabled || !widget->isVisibleTo(this)) return 0;
  return FocusRank(adapter.Tied(), screen_.TakesWholeDisplay());
}

// A list is ready for the arrow keys, the launch pad for its first tile, a form for its first
// field.
void ScreenWindow::SetFirstFocus(const QWidget* part) {
  if (part == nullptr && !builder_.Tiles().empty()) return builder_.Tiles().front()->setFocus();
  ControlAdapter* best = nullptr;
  int bestRank = 0;
  for (ControlAdapter* adapter : adapters_) {
    const int rank = FocusRankOf(*adapter);
    if (rank <= bestRank || (part != nullptr && !part->isAncestorOf(adapter->Widget()))) continue;
    best = adapter;
    bestRank = rank;
  }
  if (best != nullptr) best->TakeFocus();
}

QWidget* ScreenWindow::FocusedField() const {
  const ControlAdapter* adapter = AdapterOf(focusWidget());
  return adapter == nullptr ? nullptr : adapter->Widget();
}

void ScreenWindow::BeginVisit() {
  const ControlAdapter* adapter = AdapterOf(focusWidget());
  if (adapter == nullptr || FocusRankOf(*adapter) == 0) return SetFirstFocus();
  ComeBack();  // A grid that was hidden for its load gave the keyboard to an action.
}

void ScreenWindow::ComeBack() {
  const ControlAdapter* adapter = AdapterOf(focusWidget());
  if (screen_.TakesWholeDisplay() && adapter != nullptr &&
      adapter->Tied().Kind() == ControlKind::ActionLabel)
    SetFirstFocus();
}

ControlAdapter* ScreenWindow::AdapterOf(const QWidget* widget) const {
  for (; widget != nullptr && widget != this; widget = widget->parentWidget())
    for (ControlAdapter* adapter : adapters_)
      if (adapter->Widget() == widget) return adapter;
  return nullptr;
}

// Another window in front, a popup or the menu bar take no focus from a control. A press gives the
// focus first: where leaving the field before showed a box, the mouse was let go over that, and the
// click is done here.
void ScreenWindow::FollowFocus(QWidget* now) {
  if (now == nullptr || now->window() != this) return;
  const ControlAdapter* adapter = AdapterOf(now);
  if (adapter == nullptr) return;
  const bool pressing = QApplication::mouseButtons().testFlag(Qt::LeftButton);
  input_.Hand([&](Gestures& user) { user.Enter(adapter->Tied()); });
  auto* button = qobject_cast<QAbstractButton*>(now);
  if (button == nullptr || !pressing || QApplication::mouseButtons().testFlag(Qt::LeftButton))
    return;
  QTimer::singleShot(0, button, [this, button] {
    if (!button->isDown()) return;
    button->setDown(false);
    if (focusWidget() == button) button->click();  // else the field sent it back
  });
}

// The digits press the tiles in their order.
bool ScreenWindow::PressTile(const QKeyEvent& key) {
  const int tile = key.key() - Qt::Key_1;
  const bool isPlain = (key.modifiers() | Qt::KeypadModifier) == Qt::KeypadModifier;
  const auto& tiles = builder_.Tiles();
  if (!isPlain || tile < 0 || tile >= std::min<int>(9, static_cast<int>(tiles.size())))
    return false;
  ActionButton& pressed = *tiles[static_cast<std::size_t>(tile)];
  pressed.setFocus(Qt::ShortcutFocusReason);
  pressed.click();
  return true;
}

// The keys that no field had a use for.
void ScreenWindow::keyPressEvent(QKeyEvent* event) {
  if (PressTile(*event)) return;
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const bool escape = event->key() == Qt::Key_Escape;
  const auto press = [this](auto& pressed) {
    input_.Hand([&](Gestures& user) { user.Click(pressed); });
  };
  for (Control* control : screen_.Controls()) {
    if (control->Kind() == ControlKind::Button) {
      auto& button = static_cast<Button&>(*control);
      if ((enter && button.Default) || (escape && button.Cancel)) return press(button);
    } else if (control->Kind() == ControlKind::ActionLabel) {
      auto& label = static_cast<ActionLabel&>(*control);
      if ((enter && label.Default) || (escape && label.Cancel)) return press(label);
    } else if (control->Kind() == ControlKind::TextBox && escape) {
      auto& box = static_cast<TextBox&>(*control);
      if (box.EscapePressed) return input_.Hand([&](Gestures& user) { user.PressEscape(box); });
    }
  }
  QWidget::keyPressEvent(event);
}

}  // namespace kvi
