#include "desktop/grid/SpreadAdapter.h"

#include <QTimer>

#include "desktop/controls/WindowInput.h"
#include "desktop/grid/SpreadView.h"
#include "desktop/look/QtText.h"
#include "desktop/window/ScreenWindow.h"

namespace kvi {

SpreadAdapter::SpreadAdapter(Spread& grid, ScreenWindow& window)
    : TypedAdapter(grid,
                   new SpreadView(
                       grid, [this](const auto& gesture) { Hand(gesture); }, &window),
                   window) {
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  policy.setRetainSizeWhenHidden(true);
  shown_.setSizePolicy(policy);
  SetLabel(ToQt(window.Shown().Caption()));  // until a label of its own names it
}

void SpreadAdapter::FinishEditing() {
  shown_.FinishOpenEditor();
}

void SpreadAdapter::Release() {
  shown_.Forget();
}

void SpreadAdapter::ShowState() {
  shown_.Settle();
}

void SpreadAdapter::Show(Property property) {
  if (property == Property::Cells) return shown_.Stale();
  shown_.Settle();
  if (property == Property::ActiveCell) shown_.ShowActiveCell();
  if (property == Property::Selection) shown_.ShowSelection();
}

// Screens hide a grid, fill it and show it again: that is one event, in which nothing should
// flicker nor the focus move on. So hiding waits for the event's end.
void SpreadAdapter::ShowVisible() {
  if (control_.Visible || !shown_.isVisible()) {
    ControlAdapter::ShowVisible();
    if (control_.Visible && std::exchange(hadFocus_, false)) shown_.setFocus();
    return;
  }
  QTimer::singleShot(0, this, [this] {
    if (!window_.Input().IsOpen() || control_.Visible) return;
    hadFocus_ = shown_.hasFocus();
    ControlAdapter::ShowVisible();
  });
}

}  // namespace kvi
