#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/Control.h"

namespace kvi {

// Whatever shows a caption: "&" stands before its access key, "&&" shows as one ampersand.
class Captioned : public Control {
 public:
  Observed<std::string> Caption{*this, Property::Caption, ""};

 protected:
  Captioned(Screen& screen, ControlKind kind, std::string name, std::string caption);
};

// A text that shows. A label that stands above its field names it by hand; beside it the layout's
// Field does.
class Label : public Captioned {
 public:
  Label(Screen& screen, std::string name, std::string caption = "");
  // The control that its access key goes to and that a screen reader calls by it; set once.
  Control* Names = nullptr;

 protected:
  Label(Screen& screen, ControlKind kind, std::string name, std::string caption);
};

// A label that acts as a button, by mouse, Enter, Space and its access key ("&" in the caption).
// Takes part in its screen's hover rule.
class ActionLabel : public Label {
 public:
  ActionLabel(Screen& screen, std::string name, std::string caption);
  bool Default = false;  // Enter clicks it from every field that has no use for the key
  bool Cancel = false;   // and so does Escape
  std::function<void()> Click;
};

class Button : public Captioned {
 public:
  Button(Screen& screen, std::string name, std::string caption);
  bool Default = false;  // Enter clicks it from every field that has no use for the key
  bool Cancel = false;   // and so does Escape
  std::function<void()> Click;
};

class TextBox : public Control {
 public:
  TextBox(Screen& screen, std::string name);

  Observed<std::string> Text{*this, Property::Text, ""};
  Observed<bool> Locked{*this, Property::Locked, false};
  // Cursor position in characters; the view follows an assignment, not the other way round.
  Observed<int> SelStart{*this, Property::Selection, 0};
  int MaxLength = 0;  // characters a user can type; 0 is no bound
  bool Multiline = false;
  bool Masked = false;  // shows "*" for each character
  bool RightAligned = false;
  // "Ctrl+B" brings the keyboard here from anywhere on the screen; set once, as Tip is.
  std::string Shortcut;
  // Selects the whole text, so that what is typed next takes its place.
  void SelectAll() { TellView(Property::WholeText); }

  std::function<void()> Change;
  // A key that has an event does nothing else.
  std::function<void()> EnterPressed;
  std::function<void()> EscapePressed;  // also where no other control has a use for the key

 protected:
  void OnChanged(Property property) override;
};

// The entries of a combo or a list box. Choosing an entry, by hand or by assigning ListIndex, is a
// Click; -1 is no choice. An index outside of the entries raises 380.
class ListControl : public Control {
 public:
  void Clear();
  void AddItem(std::string item);
  // Takes an entry out; one that was chosen leaves no choice. Raises 381 outside.
  void RemoveItem(int index);
  int ListCount() const { return static_cast<int>(items_.size()); }
  const std::string& List(int index) const;  // raises 381 outside
  const std::vector<std::string>& Items() const { return items_; }
  // The position of an entry of exactly this text, or -1.
  int IndexOf(const std::string& item) const;

  int ListIndex() const { return index_; }
  void SetListIndex(int index);

  std::function<void()> Click;

 protected:
  using Control::Control;
  virtual void OnIndexChanged() {}
  // Moves the choice without a Click.
  void ResetIndex() { index_ = -1; }

 private:
  std::vector<std::string> items_;
  int index_ = -1;
};

// A drop list with a text. Editable ones fire Change on typing; emptying the list empties the text
// too, as in the classic toolkit. A list-only combo shows the chosen entry and nothing else.
class ComboBox : public ListControl {
 public:
  enum class Style { Editable, ListOnly };
  ComboBox(Screen& screen, std::string name, Style style = Style::Editable);

  Style GetStyle() const { return style_; }
  void Clear();

  Observed<std::string> Text{*this, Property::Text, ""};
  std::function<void()> Change;

 protected:
  void OnChanged(Property property) override;
  void OnIndexChanged() override;

 private:
  Style style_;
  bool choosing_ = false;
};

class ListBox : public ListControl {
 public:
  ListBox(Screen& screen, std::string name);
  std::function<void()> DblClick;
};

// A change is a Click.
class CheckBox : public Captioned {
 public:
  CheckBox(Screen& screen, std::string name, std::string caption);
  Observed<bool> Value{*this, Property::Value, false};
  std::function<void()> Click;

 protected:
  void OnChanged(Property property) override;
};

// One of a group of exclusive choices: turning one on is a Click and turns the others of its group
// off; turning one off fires nothing.
class OptionButton : public Captioned {
 public:
  // Buttons of a screen with the same group name exclude each other.
  OptionButton(Screen& screen, std::string name, std::string caption, std::string group = "");
  const std::string& Group() const { return group_; }
  Observed<bool> Value{*this, Property::Value, false};
  std::function<void()> Click;

 protected:
  void OnChanged(Property property) override;

 private:
  std::string group_;
};

// Shows a picture file; an empty path shows nothing.
class PictureBox : public Control {
 public:
  PictureBox(Screen& screen, std::string name);
  Observed<std::string> Path{*this, Property::Picture, ""};
};

// The tabs of a screen; the panels stand in the screen's layout, in the order of the captions.
class TabStrip : public Control {
 public:
  TabStrip(Screen& screen, std::string name, std::vector<std::string> captions);
  const std::vector<std::string>& Captions() const { return captions_; }
  Observed<int> Tab{*this, Property::ListIndex, 0};  // from 0
  // Asked before a user's choice takes effect; no keeps the tab that shows.
  std::function<bool(int tab)> MayShow;
  std::function<void()> Click;

 protected:
  void OnChanged(Property property) override;

 private:
  std::vector<std::string> captions_;
};

// A menu of the menu bar.
class Menu : public Captioned {
 public:
  Menu(Screen& screen, std::string name, std::string caption);
  bool HasColors() const override { return false; }
};

// An entry of a menu. A caption of "-" is a dividing line.
class MenuItem : public Captioned {
 public:
  MenuItem(Menu& menu, std::string name, std::string caption);
  bool HasColors() const override { return false; }
  Menu& Parent() const { return menu_; }
  Observed<bool> Checked{*this, Property::Value, false};
  std::function<void()> Click;

 private:
  Menu& menu_;
};

// A line of panels at the foot of a screen, counted from 1.
class StatusBar : public Control {
 public:
  StatusBar(Screen& screen, std::string name, int panels = 1);
  bool HasColors() const override { return false; }
  int PanelCount() const { return static_cast<int>(texts_.size()); }
  const std::string& PanelText(int panel) const;
  void SetPanelText(int panel, std::string text);

 private:
  std::vector<std::string> texts_;
};

}  // namespace kvi
