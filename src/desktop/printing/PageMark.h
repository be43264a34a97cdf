#pragma once

#include <QFont>
#include <QString>

#include "platform/Surface.h"

class QPainter;

namespace kvi {

// One thing drawn on a page, in inches from its upper left corner. As plain data, so that the same
// page can go to a printer at once or be drawn on a widget as often as it shows.
struct PageMark {
  enum class Kind { Text, Line, Box };
  Kind kind = Kind::Text;
  double x = 0, y = 0;
  double x2 = 0, y2 = 0;  // the other end of a line; width and height of a box
  QString text;
  QFont font;  // in units of 1/7200 inch
  int color = kBlack;
};

// Draws a mark where an inch is that many units of the painter. Sizes do not depend on the device,
// so a preview breaks and aligns as the print does.
void PaintMark(QPainter& painter, double unitsPerInch, const PageMark& mark);

// A surface that measures by the marks' own fonts and hands each mark on.
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
  QFont Font() const;
};

}  // namespace kvi
