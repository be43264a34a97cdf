#pragma once

#include <string>
#include <vector>

#include "platform/Control.h"
#include "platform/Layout.h"

namespace kvi {

class ActionLabel;
class ScreenStack;

// The window's side of a screen; the desktop attaches one while the screen has a window.
class ScreenView {
 public:
  virtual ~ScreenView() = default;
  virtual void CaptionChanged() = 0;
  virtual void BackColorChanged() = 0;
  virtual void Center() = 0;
};

// A window of the system: its controls in their order, its layout and its events. A screen object
// lives as long as the program; Unload takes its window away and lets Load run again at the next
// show, but the texts in its controls stay until a Load or a caller sets them. Whatever else
// belongs to one visit ends in EndVisit.
class Screen {
 public:
  explicit Screen(std::string name, std::string caption = "");
  virtual ~Screen();
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  const std::string& Name() const { return name_; }
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);
  int BackColor() const { return backColor_; }
  void SetBackColor(int color);

  const std::vector<Control*>& Controls() const { return controls_; }
  Control* Find(const std::string& name) const;

  // The control that has the keyboard, or null.
  Control* Focused() const { return focused_; }
  // While LostFocus runs: the control or menu entry that takes the keyboard, or null where none of
  // this screen does. Null at any other time.
  const Control* FocusGoesTo() const { return focusGoesTo_; }

  // Where the controls stand; asked once for each window.
  virtual Layout Arrange() = 0;

  // Whether the window opens over the whole display, as the lists do.
  virtual bool TakesWholeDisplay() const { return false; }

  // The events. Load comes before the first showing after the start or an Unload; Activate each
  // time the screen comes to the front; EndVisit whenever it goes away, hidden or unloaded: the one
  // place for state that the next visit must not find.
  virtual void Load() {}
  virtual void Activate() {}
  virtual void Unload() {}
  virtual void EndVisit() {}
  // What the window's own box does: the action of the Exit label, which may ask and stay.
  virtual void Exit() { CloseScreen(); }
  // Takes the window away by an Unload.
  void CloseScreen();

  // The hover rule: the label under the mouse is painted bright green, all others rest in the
  // HighlightColor.
  void Hover(ActionLabel& label);
  void clear_labels();
  virtual int RestingColor() const { return kWhite; }

  // Tells something in the second panel of the status bar, until something else is told there. A
  // screen without one tells nothing.
  void Say(const std::string& text);

  // Puts the window in the middle of the display.
  void CenterForm();

  bool IsLoaded() const { return loaded_; }
  void Attach(ScreenView* view) { view_ = view; }
  ScreenView* View() const { return view_; }

 private:
  friend class Control;
  friend class Gestures;
  friend class ScreenStack;
  void Register(Control& control) { controls_.push_back(&control); }
  void Remove(Control& control);

  std::string name_, caption_;
  int backColor_ = kToolkitColor;
  std::vector<Control*> controls_;
  ScreenView* view_ = nullptr;
  ScreenStack* stack_ = nullptr;  // from the first load on
  Control* focused_ = nullptr;
  const Control* focusGoesTo_ = nullptr;
  bool loaded_ = false;
};

}  // namespace kvi
