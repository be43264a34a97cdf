#include "platform/Control.h"

#include "platform/Screen.h"

namespace kvi {

Control::Control(Screen& screen, ControlKind kind, std::string name)
    : screen_(screen), kind_(kind), name_(std::move(name)) {
  screen_.Register(*this);
}

Control::~Control() {
  screen_.Remove(*this);
}

void Control::SetFocus() {
  if (view_ != nullptr)
    view_->TakeFocus();
  else
    screen_.focused_ = this;
}

void Control::Changed(Property property) {
  TellView(property);
  OnChanged(property);
}

void Control::TellView(Property property) {
  if (view_ != nullptr) view_->PropertyChanged(property);
}

}  // namespace kvi
