#include "bench/desktop/RawPaper.h"

#include <QFile>
#include <QPainter>
#include <QPrinter>

#include "desktop/look/Shades.h"

namespace kvi::bench {

void MarkRecord::Draw(const PageMark& mark) {
  if (mark.kind == PageMark::Kind::Text) inUse_.Take(mark.font);
  marks.emplace_back(
      RawMark{mark, inUse_.Font(), QString::fromStdString(mark.text), inUse_.Metrics().ascent()});
}

double PrintRaw(const std::vector<std::optional<RawMark>>& marks) {
  constexpr double kUnits = 7200;
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setPageSize(QPageSize(QPageSize::Letter));
  printer.setFullPage(true);
  printer.setOutputFileName(kPdf);
  QPainter painter(&printer);
  painter.scale(printer.resolution() / kUnits, printer.resolution() / kUnits);
  int pages = 1;
  for (const auto& raw : marks) {
    if (!raw) {
      printer.newPage();
      ++pages;
      continue;
    }
    const PageMark* mark = &raw->mark;
    const QPointF from = QPointF(mark->x, mark->y) * kUnits;
    const QPointF to = QPointF(mark->x2, mark->y2) * kUnits;
    if (mark->kind == PageMark::Kind::Text) {
      if (painter.font() != raw->font) painter.setFont(raw->font);
      painter.drawText(from + QPointF(0, raw->ascent), raw->text);
    } else if (mark->kind == PageMark::Kind::Line) {
      painter.setPen(QPen(Qt::black, 60));
      painter.drawLine(from, to);
    } else {
      painter.fillRect(QRectF(from, QSizeF(to.x(), to.y())), BackdropColor(mark->color, kBlack));
    }
  }
  painter.end();
  QFile::remove(kPdf);
  return pages;
}

}  // namespace kvi::bench
