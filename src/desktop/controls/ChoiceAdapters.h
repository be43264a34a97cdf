#pragma once

#include "desktop/controls/ControlAdapter.h"
#include "platform/Controls.h"

class QCheckBox;
class QListWidget;
class QRadioButton;
class QTabWidget;

namespace kvi {

class ListAdapter : public TypedAdapter<ListBox, QListWidget> {
 public:
  ListAdapter(ListBox& list, ScreenWindow& window);

 protected:
  void ShowState() override;
  bool eventFilter(QObject* watched, QEvent* event) override;
};

class CheckAdapter : public TypedAdapter<CheckBox, QCheckBox> {
 public:
  CheckAdapter(CheckBox& box, ScreenWindow& window);

 protected:
  void ShowState() override;
  void ShowColors() override;
};

class OptionAdapter : public TypedAdapter<OptionButton, QRadioButton> {
 public:
  OptionAdapter(OptionButton& option, ScreenWindow& window);

 protected:
  void ShowState() override;
  void ShowColors() override;
};

// The tabs alone; the layout adds a page for each caption. Ctrl+PageUp and Ctrl+PageDown go from
// tab to tab from anywhere in the window.
class TabAdapter : public TypedAdapter<TabStrip, QTabWidget> {
 public:
  TabAdapter(TabStrip& strip, ScreenWindow& window);

 protected:
  void ShowState() override;
  void ShowColors() override {}
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void GoOn(int step);
};

}  // namespace kvi
