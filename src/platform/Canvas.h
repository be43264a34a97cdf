#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/Control.h"
#include "platform/Layout.h"
#include "platform/MarkingSurface.h"

namespace kvi {

inline constexpr int kTwipsPerInch = 1440;

// A value from 0 to a maximum that the user moves by dragging, by small and by large steps.
class ScrollBar : public Control {
 public:
  enum class Direction { Across, Down };
  ScrollBar(Screen& screen, std::string name, Direction direction);

  Direction GetDirection() const { return direction_; }
  Observed<int> Max{*this, Property::Range, 0};
  Observed<int> SmallChange{*this, Property::Range, 1};
  Observed<int> LargeChange{*this, Property::Range, 1};
  Observed<int> Value{*this, Property::Value, 0};

  std::function<void()> Change;

 protected:
  void OnChanged(Property property) override;

 private:
  Direction direction_;
};

// A sheet of paper, larger than the window that it is seen through. All places are twips of the
// sheet, whatever the size at which the user looks at it; the view tells how much of it the window
// shows.
class Canvas : public Control {
 public:
  Canvas(Screen& screen, std::string name);

  Observed<int> Left{*this, Property::Place, 0};  // of the sheet's corner in the window
  Observed<int> Top{*this, Property::Place, 0};

  int Width() const { return width_; }
  int Height() const { return height_; }
  int InsideWidth() const { return insideWidth_; }
  int InsideHeight() const { return insideHeight_; }
  void SetInside(int width, int height);
  std::function<void()> Resized;  // the window shows more or less

  const std::vector<PageMark>& Marks() const { return marks_; }
  void Show(std::vector<PageMark> marks, int width, int height);
  void Clear() { Show({}, width_, height_); }
  // The texts, a line a line, for whoever cannot see them.
  std::string Spoken() const;

  // What keys and wheel move; set once.
  ScrollBar* Across = nullptr;
  ScrollBar* Down = nullptr;

 private:
  int width_ = 0, height_ = 0, insideWidth_ = 0, insideHeight_ = 0;
  std::vector<PageMark> marks_;
};

// A canvas with its two bars, as a screen has it.
struct ScrolledSheet {
  explicit ScrolledSheet(Screen& screen);

  // To the sheet's corner, with the bars as long as the sheet is larger than its window.
  void GoToCorner();
  void SetBars();
  Layout Arrange();

  Canvas canvas;
  ScrollBar HScroll1, VScroll1;
};

}  // namespace kvi
