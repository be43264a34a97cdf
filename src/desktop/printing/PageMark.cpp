#include "desktop/printing/PageMark.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPen>

#include "desktop/look/QtText.h"
#include "desktop/look/Shades.h"

namespace kvi {

namespace {

constexpr double kUnitsPerInch = 7200;
constexpr double kUnitsPerPoint = kUnitsPerInch / 72;
constexpr double kLineWidth = 0.6 * kUnitsPerPoint;

void PaintInUnits(QPainter& painter, const PageMark& mark) {
  const auto units = [](double inches) { return inches * kUnitsPerInch; };
  switch (mark.kind) {
    case PageMark::Kind::Text:
      painter.setFont(mark.font);
      painter.setPen(ClassicColor(mark.color));
      painter.drawText(QPointF(units(mark.x), units(mark.y) + QFontMetricsF(mark.font).ascent()),
                       mark.text);
      break;
    case PageMark::Kind::Line:
      painter.setPen(QPen(ClassicColor(mark.color), kLineWidth));
      painter.drawLine(QPointF(units(mark.x), units(mark.y)),
                       QPointF(units(mark.x2), units(mark.y2)));
      break;
    case PageMark::Kind::Box:
      painter.fillRect(QRectF(units(mark.x), units(mark.y), units(mark.x2), units(mark.y2)),
                       BackdropColor(mark.color, kBlack));
      break;
  }
}

}  // namespace

void PaintMark(QPainter& painter, double unitsPerInch, const PageMark& mark) {
  painter.save();
  painter.scale(unitsPerInch / kUnitsPerInch, unitsPerInch / kUnitsPerInch);
  PaintInUnits(painter, mark);
  painter.restore();
}

QFont MarkingSurface::Font() const {
  QFont font(ToQt(FontName));
  font.setStyleHint(QFont::SansSerif);
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setPixelSize(qRound(FontSize * kUnitsPerPoint));
  font.setBold(FontBold);
  return font;
}

double MarkingSurface::TextWidth(const std::string& text) const {
  return QFontMetricsF(Font()).horizontalAdvance(ToQt(text)) / kUnitsPerInch;
}

double MarkingSurface::TextHeight() const {
  return QFontMetricsF(Font()).height() / kUnitsPerInch;
}

void MarkingSurface::DrawText(const std::string& text) {
  PageMark mark;
  mark.x = CurrentX;
  mark.y = CurrentY;
  mark.text = ToQt(text);
  mark.font = Font();
  Draw(mark);
}

void MarkingSurface::Line(double x1, double y1, double x2, double y2) {
  PageMark mark;
  mark.kind = PageMark::Kind::Line;
  mark.x = x1;
  mark.y = y1;
  mark.x2 = x2;
  mark.y2 = y2;
  Draw(mark);
}

void MarkingSurface::FillBox(double x, double y, double width, double height, int color) {
  PageMark mark;
  mark.kind = PageMark::Kind::Box;
  mark.x = x;
  mark.y = y;
  mark.x2 = width;
  mark.y2 = height;
  mark.color = color;
  Draw(mark);
}

}  // namespace kvi
