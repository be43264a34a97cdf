#pragma once

#include <string>
#include <vector>

#include "platform/Surface.h"

namespace kvi {

struct MarkFont {
  std::string name;
  double points = 0;
  bool bold = false;
  bool operator==(const MarkFont&) const = default;
};

// One thing drawn on a page, in inches from its upper left corner. As plain data, so that the same
// page can go to a printer at once or be drawn on a widget as often as it shows.
struct PageMark {
  enum class Kind { Text, Line, Box };
  Kind kind = Kind::Text;
  double x = 0, y = 0;    // the upper left corner
  double x2 = 0, y2 = 0;  // the other end of a line; width and height of a box
  std::string text;
  MarkFont font;
  double room = 0;  // inches that the text is condensed to; 0 as wide as it is
  int color = kBlack;
};

// How wide and high texts are, in inches, whatever the device: so a preview breaks and aligns as
// the print does.
class TextMeasure {
 public:
  virtual ~TextMeasure() = default;
  virtual double Width(const MarkFont& font, const std::string& text) = 0;
  virtual double Height(const MarkFont& font) = 0;
};

// A surface that hands each mark on. The measure must outlive it.
class MarkingSurface : public Surface {
 public:
  explicit MarkingSurface(TextMeasure& measure) : measure_(measure) {}

  double TextWidth(const std::string& text) const override { return measure_.Width(Font(), text); }
  double TextHeight() const override { return measure_.Height(Font()); }
  void Line(double x1, double y1, double x2, double y2) override;
  void FillBox(double x, double y, double width, double height, int color) override;

 protected:
  void DrawText(const std::string& text, double room) override;
  virtual void Draw(const PageMark& mark) = 0;

 private:
  MarkFont Font() const { return {FontName, FontSize, FontBold}; }

  TextMeasure& measure_;
};

// A sheet that keeps its marks, as far as they begin on it.
class SheetSurface : public MarkingSurface {
 public:
  SheetSurface(TextMeasure& measure, double width, double height)
      : MarkingSurface(measure), width_(width), height_(height) {}

  double PageWidth() const override { return width_; }
  double PageHeight() const override { return height_; }
  void NewPage() override {}
  void EndDoc() override {}
  void KillDoc() override { marks_.clear(); }

  std::vector<PageMark> TakeMarks() { return std::move(marks_); }

 protected:
  void Draw(const PageMark& mark) override {
    if (mark.y < height_) marks_.push_back(mark);
  }

 private:
  const double width_, height_;
  std::vector<PageMark> marks_;
};

}  // namespace kvi
