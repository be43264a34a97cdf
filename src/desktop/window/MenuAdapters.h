#pragma once

#include "desktop/controls/ControlAdapter.h"
#include "platform/Controls.h"

class QAction;
class QMenu;
class QMenuBar;

namespace kvi {

class MenuAdapter : public ControlAdapter {
 public:
  MenuAdapter(Menu& menu, QMenuBar& bar, ScreenWindow& window);
  QMenu& Shown() const { return shown_; }

 protected:
  void ShowState() override;
  void ShowEnabled() override;
  void ShowVisible() override;

 private:
  Menu& menu_;
  QMenu& shown_;
};

class MenuItemAdapter : public ControlAdapter {
 public:
  MenuItemAdapter(MenuItem& item, QMenu& menu, ScreenWindow& window);

 protected:
  void ShowState() override;
  void ShowEnabled() override;
  void ShowVisible() override;

 private:
  MenuItem& item_;
  QAction& shown_;
};

}  // namespace kvi
