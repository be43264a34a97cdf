#include "desktop/printing/PageMark.h"

#include <QPainter>
#include <QPen>

#include "desktop/look/QtText.h"
#include "desktop/look/Shades.h"

namespace kvi {

namespace {

constexpr double kUnitsPerInch = 7200;
constexpr double kUnitsPerPoint = kUnitsPerInch / 72;
constexpr double kLineWidth = 0.6 * kUnitsPerPoint;

double Units(double inches) {
  return inches * kUnitsPerInch;
}

}  // namespace

void ScaleToMarks(QPainter& painter, double unitsPerInch) {
  painter.scale(unitsPerInch / kUnitsPerInch, unitsPerInch / kUnitsPerInch);
}

void PaintMark(QPainter& painter, const PageMark& mark) {
  switch (mark.kind) {
    case PageMark::Kind::Text:
      painter.setFont(mark.font);
      painter.setPen(ClassicColor(mark.color));
      painter.drawText(QPointF(Units(mark.x), Units(mark.y)), mark.text);
      break;
    case PageMark::Kind::Line:
      painter.setPen(QPen(ClassicColor(mark.color), kLineWidth));
      painter.drawLine(QPointF(Units(mark.x), Units(mark.y)),
                       QPointF(Units(mark.x2), Units(mark.y2)));
      break;
    case PageMark::Kind::Box:
      painter.fillRect(QRectF(Units(mark.x), Units(mark.y), Units(mark.x2), Units(mark.y2)),
                       BackdropColor(mark.color, kBlack));
      break;
  }
}

const MarkingSurface::FontInUse& MarkingSurface::InUse() const {
  if (inUse_.name == FontName && inUse_.points == FontSize && inUse_.bold == FontBold)
    return inUse_;
  QFont font(ToQt(FontName));
  font.setStyleHint(QFont::SansSerif);
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setPixelSize(qRound(FontSize * kUnitsPerPoint));
  font.setBold(FontBold);
  return inUse_ = {FontName, FontSize, FontBold, font, QFontMetricsF(font)};
}

double MarkingSurface::TextWidth(const std::string& text) const {
  return InUse().metrics.horizontalAdvance(ToQt(text)) / kUnitsPerInch;
}

double MarkingSurface::TextHeight() const {
  return InUse().metrics.height() / kUnitsPerInch;
}

void MarkingSurface::DrawText(const std::string& text) {
  PageMark mark;
  mark.x = CurrentX;
  mark.y = CurrentY + InUse().metrics.ascent() / kUnitsPerInch;
  mark.text = ToQt(text);
  mark.font = InUse().font;
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
