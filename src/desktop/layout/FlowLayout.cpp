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

int FlowLayout::heightForWidth(int width) const {
  return Flow({0, 0, width, 0}, false);
}

QSize FlowLayout::sizeHint() const {
  const QMargins margins = contentsMargins();
  QSize size;
  for (const auto& item : items_) {
    if (item->isEmpty()) continue;
    const QSize hint = item->sizeHint();
    size = {size.width() + hint.width() + spacing(), std::max(size.height(), hint.height())};
  }
  return size + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
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

int FlowLayout::Flow(const QRect& area, bool place) const {
  const QRect room = area.marginsRemoved(contentsMargins());
  int x = room.left(), y = room.top(), lineHeight = 0;
  for (const auto& item : items_) {
    if (item->isEmpty()) continue;
    const QSize size = item->sizeHint();
    if (x + size.width() > room.right() + 1 && x > room.left()) {
      x = room.left();
      y += lineHeight;
      lineHeight = 0;
    }
    if (place) item->setGeometry({{x, y}, size});
    x += size.width() + spacing();
    lineHeight = std::max(lineHeight, size.height());
  }
  return y + lineHeight - area.top() + contentsMargins().bottom();
}

}  // namespace kvi
