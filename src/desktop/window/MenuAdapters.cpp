#include "desktop/window/MenuAdapters.h"

#include <QMenu>
#include <QMenuBar>

#include "desktop/controls/AccessKeys.h"
#include "desktop/look/QtText.h"
#include "desktop/window/ScreenWindow.h"
#include "platform/Gestures.h"

namespace kvi {

MenuAdapter::MenuAdapter(Menu& menu, QMenuBar& bar, ScreenWindow& window)
    : ControlAdapter(menu, nullptr, window), menu_(menu), shown_(*bar.addMenu("")) {
  shown_.setObjectName(ToQt(menu.Name()));
}

void MenuAdapter::ShowState() {
  shown_.setTitle(window_.Keys().Claim(&menu_, ToQt(menu_.Caption)));
}

void MenuAdapter::ShowEnabled() {
  shown_.setEnabled(menu_.Enabled);
}

void MenuAdapter::ShowVisible() {
  shown_.menuAction()->setVisible(menu_.Visible);
}

MenuItemAdapter::MenuItemAdapter(MenuItem& item, QMenu& menu, ScreenWindow& window)
    : ControlAdapter(item, nullptr, window), item_(item), shown_(*menu.addAction("")) {
  shown_.setObjectName(ToQt(item.Name()));
  connect(&shown_, &QAction::triggered, this, [this] {
    // A menu takes no focus by itself.
    window_.FinishEditing();
    Hand([this](Gestures& user) { user.Click(item_); });
  });
}

// An entry gets room for a mark with its first one; the others stand without.
void MenuItemAdapter::ShowState() {
  const QString caption = ToQt(item_.Caption);
  shown_.setSeparator(caption == "-");
  shown_.setText(caption);
  if (item_.Checked) shown_.setCheckable(true);
  shown_.setChecked(item_.Checked);
}

void MenuItemAdapter::ShowEnabled() {
  shown_.setEnabled(item_.Enabled);
}

void MenuItemAdapter::ShowVisible() {
  shown_.setVisible(item_.Visible);
}

}  // namespace kvi
