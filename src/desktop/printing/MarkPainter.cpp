#include "desktop/printing/MarkPainter.h"

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

void FontInUse::Take(const MarkFont& font) {
  if (font == taken_) return;
  taken_ = font;
  font_ = QFont(ToQt(font.name));
  font_.setStyleHint(QFont::SansSerif);
  font_.setHintingPreference(QFont::PreferNoHinting);
  font_.setPixelSize(qRound(font.points * kUnitsPerPoint));
  font_.setBold(font.bold);
  metrics_ = QFontMetricsF(font_);
}

double QtTextMeasure::Width(const MarkFont& font, const std::string& text) {
  inUse_.Take(font);
  return inUse_.Metrics().horizontalAdvance(ToQt(text)) / kUnitsPerInch;
}

double QtTextMeasure::Height(const MarkFont& font) {
  inUse_.Take(font);
  return inUse_.Metrics().height() / kUnitsPerInch;
}

MarkPainter::MarkPainter(QPainter& painter, double unitsPerInch) : painter_(painter) {
  painter_.scale(unitsPerInch / kUnitsPerInch, unitsPerInch / kUnitsPerInch);
}

void MarkPainter::Paint(const PageMark& mark) {
  switch (mark.kind) {
    case PageMark::Kind::Text:
      PaintText(mark);
      break;
    case PageMark::Kind::Line:
      painter_.setPen(QPen(ClassicColor(mark.color), kLineWidth));
      painter_.drawLine(QPointF(Units(mark.x), Units(mark.y)),
                        QPointF(Units(mark.x2), Units(mark.y2)));
      break;
    case PageMark::Kind::Box:
      painter_.fillRect(QRectF(Units(mark.x), Units(mark.y), Units(mark.x2), Units(mark.y2)),
                        BackdropColor(mark.color, kBlack));
      break;
  }
}

void MarkPainter::PaintText(const PageMark& mark) {
  inUse_.Take(mark.font);
  painter_.setFont(inUse_.Font());
  painter_.setPen(ClassicColor(mark.color));
  const QString text = ToQt(mark.text);
  const QPointF base(Units(mark.x), Units(mark.y) + inUse_.Metrics().ascent());
  const double width = mark.room > 0 ? inUse_.Metrics().horizontalAdvance(text) : 0;
  if (width <= 0) return painter_.drawText(base, text);
  painter_.save();
  painter_.translate(base);
  painter_.scale(Units(mark.room) / width, 1);
  painter_.drawText(QPointF(), text);
  painter_.restore();
}

}  // namespace kvi
