#include "desktop/layout/FlowLayout.h"

#include <algorithm>

namespace kvi {

FlowLayout::~FlowLayout() = default;

void FlowLayout::addItem(QLayoutItem* item) {
  items_.emplace_back(item);
}

QLayoutItem* FlowLayout::itemAt(int index) const {
  return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index) {
  if (itemAt(index) == nullptr) return nullptr;
  const auto at = items_.begin() + index;
  QLayoutItem* item = at->release();
  items_.erase(at);
  return item;
}

void FlowLayout::AddGap() {
  addItem(new QSpacerItem(0, 0));
}

int FlowLayout::heightForWidth(int width) const {
  return Flow({0, 0, width, 0}, false);
}

QSize FlowLayout::sizeHint() const {
  const QMargins margins = contentsMargins();
  const Line line = LineFrom(0, QLAYOUTSIZE_MAX);
  return {line.width + margins.left() + margins.right(),
          line.height + margins.top() + margins.bottom()};
}

QSize FlowLayout::minimumSize() const {
  const QMargins margins = contentsMargins();
  QSize size;
  for (const auto& item : items_)
    if (!item->isEmpty()) size = size.expandedTo(item->minimumSize());
  return size + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

void FlowLayout::setGeometry(const QRect& area) {
  QLayout::setGeometry(area);
  Flow(area, true);
}

FlowLayout::Line FlowLayout::LineFrom(std::size_t first, int room) const {
  Line line{.end = first};
  for (; line.end < items_.size(); ++line.end) {
    QLayoutItem& item = *items_[line.end];
    if (item.spacerItem() != nullptr) ++line.gaps;
    if (item.isEmpty()) continue;
    const QSize size = item.sizeHint();
    const int width = line.width == 0 ? size.width() : line.width + spacing() + size.width();
    if (width > room && line.width > 0) break;
    line.width = width;
    line.height = std::max(line.height, size.height());
  }
  return line;
}

void FlowLayout::Place(std::size_t first, const Line& line, const QRect& room, int y) const {
  int x = room.left();
  const int free = std::max(0, room.width() - line.width);
  for (std::size_t i = first; i < line.end; ++i) {
    QLayoutItem& item = *items_[i];
    if (item.spacerItem() != nullptr) x += free / line.gaps;
    if (item.isEmpty()) continue;
    const QSize size = item.sizeHint().boundedTo({room.width(), QLAYOUTSIZE_MAX});
    const int spare = item.alignment().testFlag(Qt::AlignTop) ? 0 : line.height - size.height();
    item.setGeometry({{x, y + spare / 2}, size});
    x += size.width() + spacing();
  }
}

int FlowLayout::Flow(const QRect& area, bool place) const {
  const QRect room = area.marginsRemoved(contentsMargins());
  int y = room.top();
  for (std::size_t first = 0; first < items_.size();) {
    const Line line = LineFrom(first, room.width());
    if (place) Place(first, line, room, y);
    first = line.end;
    y += line.height + (first < items_.size() ? lineGap_ : 0);
  }
  return y - area.top() + contentsMargins().bottom();
}

QSize FoldingRow::SizeOf(QSize (QLayoutItem::*size)() const, bool folded) const {
  int widest = 0, all = 0, highest = 0, shown = 0;
  for (int i = 0; i < count(); ++i) {
    if (itemAt(i)->isEmpty()) continue;
    const QSize one = (itemAt(i)->*size)();
    widest = std::max(widest, one.width());
    highest = std::max(highest, one.height());
    all += one.width() + (shown++ > 0 ? spacing() : 0);
  }
  const QMargins margins = contentsMargins();
  return {(folded ? widest : all) + margins.left() + margins.right(),
          highest + margins.top() + margins.bottom()};
}

bool FoldingRow::Folds(int width) const {
  return SizeOf(&QLayoutItem::minimumSize, false).width() > width;
}

// The width of each item side by side: what it likes and its share of the rest, or,
// where that is too much for all, less. Who does not wrap gives first, as far as it can.
std::vector<int> FoldingRow::WidthsIn(int room) const {
  std::vector<int> widths;
  int stretches = 0;
  int spare = room - SizeOf(&QLayoutItem::sizeHint, false).width();
  for (int i = 0; i < count(); ++i) {
    widths.push_back(itemAt(i)->isEmpty() ? 0 : itemAt(i)->sizeHint().width());
    stretches += itemAt(i)->isEmpty() ? 0 : stretch(i);
  }
  if (spare >= 0) {
    for (int i = 0; stretches > 0 && i < count(); ++i)
      if (!itemAt(i)->isEmpty())
        widths[static_cast<std::size_t>(i)] += spare * stretch(i) / stretches;
    return widths;
  }
  for (const bool wrapping : {false, true}) {
    for (int i = 0; i < count(); ++i) {
      if (itemAt(i)->isEmpty() || itemAt(i)->hasHeightForWidth() != wrapping) continue;
      int& width = widths[static_cast<std::size_t>(i)];
      const int given = std::min(-spare, width - itemAt(i)->minimumSize().width());
      width -= given;
      spare += given;
    }
  }
  return widths;
}

int FoldingRow::heightForWidth(int width) const {
  const bool folds = Folds(width);
  const auto widths =
      folds ? std::vector<int>(static_cast<std::size_t>(count()), width) : WidthsIn(width);
  int height = 0, shown = 0;
  for (int i = 0; i < count(); ++i) {
    const QLayoutItem& item = *itemAt(i);
    if (item.isEmpty()) continue;
    const int one = item.hasHeightForWidth()
                        ? item.heightForWidth(widths[static_cast<std::size_t>(i)])
                        : item.sizeHint().height();
    height = folds ? height + one + (shown++ > 0 ? spacing() : 0) : std::max(height, one);
  }
  return height + contentsMargins().top() + contentsMargins().bottom();
}

void FoldingRow::setGeometry(const QRect& area) {
  const bool folds = Folds(area.width());
  const Direction wanted = folds ? TopToBottom : LeftToRight;
  if (direction() != wanted) setDirection(wanted);
  if (folds) return QBoxLayout::setGeometry(area);
  QLayout::setGeometry(area);
  const QRect room = area.marginsRemoved(contentsMargins());
  const auto widths = WidthsIn(room.width());
  int x = room.left();
  for (int i = 0; i < count(); ++i) {
    if (itemAt(i)->isEmpty()) continue;
    const int width = widths[static_cast<std::size_t>(i)];
    itemAt(i)->setGeometry({x, room.top(), width, room.height()});
    x += width + spacing();
  }
}

}  // namespace kvi
