#pragma once

#include <string>
#include <vector>

#include "platform/Control.h"
#include "platform/Layout.h"

namespace kvi {

class ActionLabel;

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
// show, but the texts in its controls stay until a Load or a caller sets them.
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

  // Where the controls stand; asked once for each window.
  virtual Layout Arrange() = 0;

  // Whether the window opens over the whole display, as the lists do.
  virtual bool TakesWholeDisplay() const { return false; }

  // The events. Load comes before the first showing after the start or an Unload; Activate each
  // time the screen comes to the front; QueryUnload may refuse the closing by its window's own box.
  virtual void Load() {}
  virtual void Activate() {}
  virtual bool QueryUnload() { return true; }
  virtual void Unload() {}

  // The hover rule: the label under the mouse is painted bright green, all others rest in the
  // HighlightColor.
  void Hover(ActionLabel& label);
  void clear_labels();
  virtual int RestingColor() const { return kWhite; }

  // Puts the window in the middle of the display.
  void CenterForm();

  bool IsLoaded() const { return loaded_; }
  void Attach(ScreenView* view) { view_ = view; }
  ScreenView* View() const { return view_; }

 private:
  friend class Control;
  friend class ScreenStack;
  void Register(Control& control) { controls_.push_back(&control); }
  void Remove(Control& control);

  std::string name_, caption_;
  int backColor_ = kToolkitColor;
  std::vector<Control*> controls_;
  ScreenView* view_ = nullptr;
  bool loaded_ = false;
};

}  // namespace kvi
