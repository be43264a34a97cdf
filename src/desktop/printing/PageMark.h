#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QString>

#include "platform/Surface.h"

class QPainter;

namespace kvi {

// One thing drawn on a page, in inches from its upper left corner. As plain data, so that the same
// page can go to a printer at once or be drawn on a widget as often as it shows.
struct PageMark {
  enum class Kind { Text, Line, Box };
  Kind kind = Kind::Text;
  double x = 0, y = 0;    // of a text the left end of its base line
  double x2 = 0, y2 = 0;  // the other end of a line; width and height of a box
  QString text;
  QFont font;  // in units of 1/7200 inch
  int color = kBlack;
};

// A painter of a device where an inch is that many units is made ready for marks once, then draws
// them. Sizes do not depend on the device, so a preview breaks and aligns as the print does.
void ScaleToMarks(QPainter& painter, double unitsPerInch);
void PaintMark(QPainter& painter, const PageMark& mark);

// A surface that measures by the marks' own fonts and hands each mark on. It keeps the font in use:
// a list draws and measures thousands of texts in one.
class MarkingSurface : public Surface {
 public:
  double TextWidth(const std::string& text) const override;
  double TextHeight() const override;
  void Line(double x1, double y1, double x2, double y2) override;
  void FillBox(double x, double y, double width, double height, int color) override;

 protected:
  void DrawText(const std::string& text) override;
  virtual void Draw(const PageMark& mark) = 0;

 private:
  struct FontInUse {
    std::string name;
    double points = 0;
    bool bold = false;
    QFont font;
    QFontMetricsF metrics{QFont()};
  };
  const FontInUse& InUse() const;

  mutable FontInUse inUse_;
};

}  // namespace kvi
