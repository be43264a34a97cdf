#include "desktop/grid/GridHeading.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "desktop/look/Look.h"

namespace kvi {

namespace {

constexpr int kPadding = 4;
constexpr double kSmallestCaption = 7;  // points
constexpr int kMostLines = 4;
constexpr QChar kBreak(0x200b);  // where a line may end
constexpr int kCaptionFlags = Qt::AlignCenter | Qt::TextWordWrap;

}  // namespace

GridHeading::GridHeading(Qt::Orientation orientation, QWidget* parent)
    : QHeaderView(orientation, parent) {
  setFont(GridFont());
  setHighlightSections(false);
  setMinimumSectionSize(1);
  setSectionsClickable(true);
  setSectionResizeMode(orientation == Qt::Horizontal ? Interactive : Fixed);
}

QString GridHeading::TextOf(int section) const {
  // A span of dates may go on in the next line.
  return model()->headerData(section, orientation()).toString().replace("-", QString("-") + kBreak);
}

int GridHeading::NeededHeight() const {
  const int line = fontMetrics().height();
  int needed = line;
  for (int section = 0; section < count(); ++section) {
    const int room = sectionSize(section) - 2 * kPadding;
    if (isSectionHidden(section) || room < 24) continue;
    const QRect area(0, 0, room, kMostLines * line);
    needed = std::max(
        needed, fontMetrics().boundingRect(area, kCaptionFlags, TextOf(section)).height());
  }
  return std::min(needed, kMostLines * line) + 12;
}

QSize GridHeading::sectionSizeFromContents(int section) const {
  const int width = fontMetrics().horizontalAdvance(TextOf(section)) + 2 * kPadding + 4;
  return {width, fontMetrics().height() + kPadding};
}

void GridHeading::paintSection(QPainter* painter, const QRect& area, int section) const {
  painter->fillRect(area, kHeadingColor);
  painter->setPen(kEdge);
  painter->drawLine(area.topRight(), area.bottomRight());
  painter->drawLine(area.bottomLeft(), area.bottomRight());
  painter->setFont(font());
  const QRect room = area.adjusted(kPadding, 0, -kPadding, 0);
  if (orientation() == Qt::Vertical) {
    painter->setPen(kQuietInk);
    painter->drawText(room, Qt::AlignRight | Qt::AlignVCenter, TextOf(section));
    return;
  }
  if (SortedSection && SortedSection() == section) PaintSortMark(*painter, area);
  painter->setPen(kInk);
  QString text = TextOf(section);
  const auto fits = [&] {
    const QRect needed = painter->fontMetrics().boundingRect(room, kCaptionFlags, text);
    return needed.height() <= room.height() && needed.width() <= room.width();
  };
  // A smaller face tells more than a cut caption.
  QFont face = font();
  while (!fits() && face.pointSizeF() > kSmallestCaption) {
    face.setPointSizeF(face.pointSizeF() - 0.5);
    painter->setFont(face);
  }
  if (!fits()) {
    painter->setFont(font());
    text = fontMetrics().elidedText(text, Qt::ElideRight, room.width());
  }
  painter->drawText(room, kCaptionFlags, text);
}

void GridHeading::PaintSortMark(QPainter& painter, const QRect& area) const {
  const QPointF tip(area.right() - 7, area.top() + 3);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(kAccent);
  painter.drawPolygon(QPolygonF({tip, tip + QPointF(-4, 5), tip + QPointF(4, 5)}));
  painter.restore();
}

void GridHeading::paintEvent(QPaintEvent* event) {
  QHeaderView::paintEvent(event);
  if (!Kept) return;
  QPainter painter(viewport());
  for (const KeptColumn& column : Kept()) {
    painter.save();
    paintSection(&painter, {column.x, 0, column.width, height()}, column.section);
    painter.restore();
  }
}

void GridHeading::mousePressEvent(QMouseEvent* event) {
  held_ = true;
  const int x = event->position().toPoint().x();
  if (Kept)
    for (const KeptColumn& column : Kept()) {
      if (x < column.x || x >= column.x + column.width) continue;
      emit sectionPressed(column.section);
      emit sectionClicked(column.section);
      return;
    }
  QHeaderView::mousePressEvent(event);
}

void GridHeading::mouseReleaseEvent(QMouseEvent* event) {
  QHeaderView::mouseReleaseEvent(event);
  held_ = false;
  if (Dragged) Dragged();
}

}  // namespace kvi
