#pragma once

#include "desktop/controls/ControlAdapter.h"
#include "platform/Controls.h"

class QLabel;
class QPushButton;

namespace kvi {

class ActionButton;

class LabelAdapter : public ControlAdapter {
 public:
  LabelAdapter(Label& label, WindowContext& context);
  // The field that the label's access key goes to.
  void SetBuddy(QWidget& field);

 protected:
  void ShowState() override;
  void ShowColors() override;

 private:
  Label& label_;
  QLabel& shown_;
};

class ActionAdapter : public ControlAdapter {
 public:
  ActionAdapter(ActionLabel& label, WindowContext& context);

 protected:
  void ShowState() override;
  void ShowColors() override;

 private:
  ActionLabel& label_;
  ActionButton& shown_;
};

class ButtonAdapter : public ControlAdapter {
 public:
  ButtonAdapter(Button& button, WindowContext& context);

 protected:
  void ShowState() override;
  void ShowColors() override {}

 private:
  Button& button_;
  QPushButton& shown_;
};

}  // namespace kvi
