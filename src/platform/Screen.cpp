#include "platform/Screen.h"

#include <algorithm>

#include "platform/Controls.h"
#include "platform/ScreenStack.h"

namespace kvi {

Screen::Screen(std::string name, std::string caption)
    : name_(std::move(name)), caption_(std::move(caption)) {}

Screen::~Screen() = default;

void Screen::SetCaption(std::string caption) {
  if (caption == caption_) return;
  caption_ = std::move(caption);
  if (view_ != nullptr) view_->CaptionChanged();
}

void Screen::SetBackColor(int color) {
  if (color == backColor_) return;
  backColor_ = color;
  if (view_ != nullptr) view_->BackColorChanged();
}

Control* Screen::Find(const std::string& name) const {
  for (Control* control : controls_)
    if (control->Name() == name) return control;
  return nullptr;
}

void Screen::Hover(ActionLabel& label) {
  clear_labels();
  label.ForeColor = kBrightGreen;
}

void Screen::clear_labels() {
  for (Control* control : controls_)
    if (control->Kind() == ControlKind::ActionLabel) control->ForeColor = RestingColor();
}

void Screen::CloseScreen() {
  if (stack_ != nullptr) stack_->Unload(*this);
}

void Screen::Say(const std::string& text) {
  for (Control* control : controls_) {
    if (control->Kind() != ControlKind::StatusBar) continue;
    auto& bar = static_cast<StatusBar&>(*control);
    if (bar.PanelCount() > 1) bar.SetPanelText(2, text);
  }
}

void Screen::CenterForm() {
  if (view_ != nullptr) view_->Center();
}

void Screen::Remove(Control& control) {
  std::erase(controls_, &control);
}

}  // namespace kvi
