#include "desktop/grid/GridHeading.h"

#include <QPainter>

#include "desktop/look/Look.h"

namespace kvi {

namespace {

constexpr int kPadding = 4;
constexpr double kSmallestCaption = 7;  // points
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
  return model()->headerData(section, orientation()).toString();
}

int GridHeading::NeededHeight() const {
  const int line = fontMetrics().height();
  int lines = 1;
  for (int section = 0; section < count() && lines == 1; ++section) {
    const int room = sectionSize(section) - 2 * kPadding;
    if (isSectionHidden(section) || room < 24) continue;
    if (fontMetrics().horizontalAdvance(TextOf(section)) > room) lines = 2;
  }
  return lines * line + 12;
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

}  // namespace kvi
