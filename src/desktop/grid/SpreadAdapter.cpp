#include "desktop/grid/SpreadAdapter.h"

#include <QTimer>

#include "desktop/controls/WindowInput.h"
#include "desktop/grid/SpreadView.h"

namespace kvi {

SpreadAdapter::SpreadAdapter(Spread& grid, WindowContext& context)
    : ControlAdapter(grid,
                     new SpreadView(
                         grid, [this](const auto& gesture) { Hand(gesture); }, &context.window),
                     context),
      grid_(grid),
      shown_(static_cast<SpreadView&>(*Widget())) {
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  policy.setRetainSizeWhenHidden(true);
  shown_.setSizePolicy(policy);
  shown_.setAccessibleName(shown_.objectName());
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
  if (grid_.Visible || !shown_.isVisible()) {
    ControlAdapter::ShowVisible();
    if (grid_.Visible && std::exchange(hadFocus_, false)) shown_.setFocus();
    return;
  }
  QTimer::singleShot(0, this, [this] {
    if (!context_.input.IsOpen() || grid_.Visible) return;
    hadFocus_ = shown_.hasFocus();
    ControlAdapter::ShowVisible();
  });
}

}  // namespace kvi
