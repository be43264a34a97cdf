#pragma once

#include <QFont>
#include <QFontMetricsF>

#include "platform/MarkingSurface.h"

class QPainter;

namespace kvi {

// The font that was used last: a list draws and measures thousands of texts in one. In units of
// 1/7200 inch.
class FontInUse {
 public:
  void Take(const MarkFont& font);
  const QFont& Font() const { return font_; }
  const QFontMetricsF& Metrics() const { return metrics_; }

 private:
  MarkFont taken_;
  QFont font_;
  QFontMetricsF metrics_{QFont()};
};

class QtTextMeasure : public TextMeasure {
 public:
  double Width(const MarkFont& font, const std::string& text) override;
  double Height(const MarkFont& font) override;

 private:
  FontInUse inUse_;
};

// Draws marks with a painter of a device where an inch is that many units. The painter must outlive
// it and is used for nothing else meanwhile.
class MarkPainter {
 public:
  MarkPainter(QPainter& painter, double unitsPerInch);
  void Paint(const PageMark& mark);

 private:
  void PaintText(const PageMark& mark);

  QPainter& painter_;
  FontInUse inUse_;
};

}  // namespace kvi
