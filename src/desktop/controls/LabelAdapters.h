#pragma once

#include "desktop/controls/ControlAdapter.h"
#include "platform/Controls.h"

class QPushButton;

namespace kvi {

class ActionButton;
class ElidingLabel;

class LabelAdapter : public TypedAdapter<Label, ElidingLabel> {
 public:
  LabelAdapter(Label& label, ScreenWindow& window);
  // The field that the label names and that its access key goes to.
  void SetBuddy(ControlAdapter& field);

 protected:
  void ShowState() override;
  void ShowColors() override;

 private:
  ControlAdapter* field_ = nullptr;
};

class ActionAdapter : public TypedAdapter<ActionLabel, ActionButton> {
 public:
  ActionAdapter(ActionLabel& label, ScreenWindow& window);

 protected:
  void ShowState() override;
  void ShowColors() override;
};

class ButtonAdapter : public TypedAdapter<Button, QPushButton> {
 public:
  ButtonAdapter(Button& button, ScreenWindow& window);

 protected:
  void ShowState() override;
  void ShowColors() override {}
};

}  // namespace kvi
