#pragma once

#include <functional>
#include <string>
#include <utility>

#include "base/Palette.h"

namespace kvi {

class Control;
class Screen;

enum class ControlKind {
  Label,
  ActionLabel,
  TextBox,
  ComboBox,
  ListBox,
  CheckBox,
  OptionButton,
  Button,
  PictureBox,
  TabStrip,
  Menu,
  MenuItem,
  StatusBar,
  Spread,
  Chart,
  ScrollBar,
  Canvas,
};

// What of a control changed, as told to its view.
enum class Property {
  Text,
  Caption,
  Value,
  List,
  ListIndex,
  Enabled,
  Visible,
  Locked,
  BackColor,
  ForeColor,
  Picture,
  Selection,  // of text
  WholeText,  // is to be selected
  Cells,      // of a grid: texts, formats, sizes
  ActiveCell,
  Range,  // of a scroll bar
  Place,  // of a sheet behind its window
};

// The window's side of a control. The desktop makes one for each control that it draws and attaches
// it; a control without a view works all the same.
class ControlView {
 public:
  virtual ~ControlView() = default;
  virtual void PropertyChanged(Property property) = 0;
  virtual void TakeFocus() = 0;
};

// A property under the classic toolkit's rule: assigning a different value tells the view and fires
// the control's event, whoever assigned it; assigning the same value does nothing.
template <class T>
class Observed {
 public:
  Observed(Control& owner, Property property, T initial)
      : owner_(owner), property_(property), value_(std::move(initial)) {}
  Observed(const Observed&) = delete;
  Observed& operator=(const Observed& other) { return *this = other.value_; }
  Observed& operator=(T value);

  operator const T&() const { return value_; }
  const T& operator()() const { return value_; }

 private:
  Control& owner_;
  Property property_;
  T value_;
};

// One control of a screen, under its name; it registers itself with its screen, so that a screen is
// the ordered list of its controls. LostFocus, DblClick and MouseMove come from the user alone.
class Control {
 public:
  Control(Screen& screen, ControlKind kind, std::string name);
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& Name() const { return name_; }
  ControlKind Kind() const { return kind_; }
  Screen& Owner() const { return screen_; }

  // Both are set once, before the screen is first shown. What it does in a few words more than its
  // caption: shown under the mouse and told to a screen reader.
  std::string Tip;
  // What a screen reader calls it, where the caption or the label beside it does not tell it from
  // the others of its screen.
  std::string SpokenName;

  // Controls without colours (menus, status bars) are passed over by a colour scheme.
  virtual bool HasColors() const { return true; }
  // Gives it the keyboard; without a view no event comes with it.
  void SetFocus();

  // The view is owned by the window; a control knows one at most.
  void Attach(ControlView* view) { view_ = view; }
  ControlView* View() const { return view_; }

  Observed<bool> Visible{*this, Property::Visible, true};
  Observed<bool> Enabled{*this, Property::Enabled, true};
  Observed<int> BackColor{*this, Property::BackColor, kToolkitColor};  // palette index
  Observed<int> ForeColor{*this, Property::ForeColor, kToolkitColor};  // palette index

  std::function<void()> GotFocus;
  std::function<void()> LostFocus;
  std::function<void()> MouseMove;

  // Called by Observed after a value changed: tells the view, then fires the event if the property
  // has one. Not for handlers.
  void Changed(Property property);

 protected:
  virtual void OnChanged(Property) {}
  void TellView(Property property);

 private:
  Screen& screen_;
  ControlKind kind_;
  std::string name_;
  ControlView* view_ = nullptr;
};

template <class T>
Observed<T>& Observed<T>::operator=(T value) {
  if (value == value_) return *this;
  value_ = std::move(value);
  owner_.Changed(property_);
  return *this;
}

}  // namespace kvi
