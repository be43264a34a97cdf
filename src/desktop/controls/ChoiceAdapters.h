#pragma once

#include "desktop/controls/ControlAdapter.h"
#include "platform/Controls.h"

class QCheckBox;
class QListWidget;
class QRadioButton;
class QTabWidget;

namespace kvi {

class ListAdapter : public ControlAdapter {
 public:
  ListAdapter(ListBox& list, WindowContext& context);

 protected:
  void ShowState() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  ListBox& list_;
  QListWidget& shown_;
};

class CheckAdapter : public ControlAdapter {
 public:
  CheckAdapter(CheckBox& box, WindowContext& context);

 protected:
  void ShowState() override;
  void ShowColors() override;

 private:
  CheckBox& box_;
  QCheckBox& shown_;
};

class OptionAdapter : public ControlAdapter {
 public:
  OptionAdapter(OptionButton& option, WindowContext& context);

 protected:
  void ShowState() override;
  void ShowColors() override;

 private:
  OptionButton& option_;
  QRadioButton& shown_;
};

// The tabs alone; the layout adds a page for each caption.
class TabAdapter : public ControlAdapter {
 public:
  TabAdapter(TabStrip& strip, WindowContext& context);

 protected:
  void ShowState() override;
  void ShowColors() override {}

 private:
  TabStrip& strip_;
  QTabWidget& shown_;
};

}  // namespace kvi
