#include "platform/Controls.h"

#include <algorithm>

#include "base/Flag.h"
#include "base/RunTimeError.h"
#include "platform/Screen.h"

namespace kvi {

namespace {

constexpr int kInvalidPropertyValue = 380;
constexpr int kInvalidPropertyArrayIndex = 381;

void Fire(const std::function<void()>& event) {
  if (event) event();
}

}  // namespace

Captioned::Captioned(Screen& screen, ControlKind kind, std::string name, std::string caption)
    : Control(screen, kind, std::move(name)) {
  Caption = std::move(caption);
}

Label::Label(Screen& screen, std::string name, std::string caption)
    : Label(screen, ControlKind::Label, std::move(name), std::move(caption)) {}

Label::Label(Screen& screen, ControlKind kind, std::string name, std::string caption)
    : Captioned(screen, kind, std::move(name), std::move(caption)) {}

ActionLabel::ActionLabel(Screen& screen, std::string name, std::string caption)
    : Label(screen, ControlKind::ActionLabel, std::move(name), std::move(caption)) {
  BackColor = kBlack;
  ForeColor = kWhite;
}

Button::Button(Screen& screen, std::string name, std::string caption)
    : Captioned(screen, ControlKind::Button, std::move(name), std::move(caption)) {}

TextBox::TextBox(Screen& screen, std::string name)
    : Control(screen, ControlKind::TextBox, std::move(name)) {}

void TextBox::OnChanged(Property property) {
  if (property == Property::Text) Fire(Change);
}

void ListControl::Clear() {
  items_.clear();
  index_ = -1;
  TellView(Property::List);
}

void ListControl::AddItem(std::string item) {
  items_.push_back(std::move(item));
  TellView(Property::List);
}

void ListControl::RemoveItem(int index) {
  List(index);
  items_.erase(items_.begin() + index);
  if (index_ == index) SetListIndex(-1);
  if (index_ > index) --index_;
  TellView(Property::List);
}

const std::string& ListControl::List(int index) const {
  if (index < 0 || index >= ListCount()) throw RunTimeError(kInvalidPropertyArrayIndex);
  return items_[static_cast<std::size_t>(index)];
}

int ListControl::IndexOf(const std::string& item) const {
  const auto found = std::find(items_.begin(), items_.end(), item);
  return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

void ListControl::SetListIndex(int index) {
  if (index < -1 || index >= ListCount()) throw RunTimeError(kInvalidPropertyValue);
  if (index == index_) return;
  index_ = index;
  OnIndexChanged();
  TellView(Property::ListIndex);
  if (index >= 0) Fire(Click);
}

ComboBox::ComboBox(Screen& screen, std::string name, Style style)
    : ListControl(screen, ControlKind::ComboBox, std::move(name)), style_(style) {}

void ComboBox::Clear() {
  ListControl::Clear();
  Text = "";
}

// Picking an entry is a Click alone; Change belongs to typed and assigned texts.
void ComboBox::OnIndexChanged() {
  const Flag choosing(choosing_);
  Text = ListIndex() < 0 ? std::string() : List(ListIndex());
}

void ComboBox::OnChanged(Property property) {
  if (property != Property::Text || choosing_) return;
  const int index = IndexOf(Text);
  if (style_ == Style::Editable) {
    ResetIndex();
    Fire(Change);
  } else if (index >= 0) {
    SetListIndex(index);
  } else if (!Text().empty()) {
    ResetIndex();
    {
      const Flag choosing(choosing_);
      Text = "";
    }
    throw RunTimeError(kInvalidPropertyValue);
  }
}

ListBox::ListBox(Screen& screen, std::string name)
    : ListControl(screen, ControlKind::ListBox, std::move(name)) {}

CheckBox::CheckBox(Screen& screen, std::string name, std::string caption)
    : Captioned(screen, ControlKind::CheckBox, std::move(name), std::move(caption)) {}

void CheckBox::OnChanged(Property property) {
  if (property == Property::Value) Fire(Click);
}

OptionButton::OptionButton(Screen& screen, std::string name, std::string caption, std::string group)
    : Captioned(screen, ControlKind::OptionButton, std::move(name), std::move(caption)),
      group_(std::move(group)) {}

void OptionButton::OnChanged(Property property) {
  if (property != Property::Value || !Value) return;
  for (Control* other : Owner().Controls()) {
    if (other == this || other->Kind() != ControlKind::OptionButton) continue;
    auto& option = static_cast<OptionButton&>(*other);
    if (option.group_ == group_) option.Value = false;
  }
  Fire(Click);
}

PictureBox::PictureBox(Screen& screen, std::string name)
    : Control(screen, ControlKind::PictureBox, std::move(name)) {}

TabStrip::TabStrip(Screen& screen, std::string name, std::vector<std::string> captions)
    : Control(screen, ControlKind::TabStrip, std::move(name)), captions_(std::move(captions)) {}

void TabStrip::OnChanged(Property property) {
  if (property == Property::ListIndex) Fire(Click);
}

Menu::Menu(Screen& screen, std::string name, std::string caption)
    : Captioned(screen, ControlKind::Menu, std::move(name), std::move(caption)) {}

MenuItem::MenuItem(Menu& menu, std::string name, std::string caption)
    : Captioned(menu.Owner(), ControlKind::MenuItem, std::move(name), std::move(caption)),
      menu_(menu) {}

StatusBar::StatusBar(Screen& screen, std::string name, int panels)
    : Control(screen, ControlKind::StatusBar, std::move(name)),
      texts_(static_cast<std::size_t>(panels)) {}

const std::string& StatusBar::PanelText(int panel) const {
  if (panel < 1 || panel > PanelCount()) throw RunTimeError(kInvalidPropertyArrayIndex);
  return texts_[static_cast<std::size_t>(panel - 1)];
}

void StatusBar::SetPanelText(int panel, std::string text) {
  if (PanelText(panel) == text) return;
  texts_[static_cast<std::size_t>(panel - 1)] = std::move(text);
  TellView(Property::Text);
}

}  // namespace kvi
