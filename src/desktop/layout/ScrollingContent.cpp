#include "desktop/layout/ScrollingContent.h"

#include <QEvent>
#include <QLayout>
#include <algorithm>

namespace kvi {

namespace {

// Between the area and the content: an area takes the preferred height of a content with wrapping
// texts for its least one, this takes the least.
class Holder : public QWidget {
 public:
  explicit Holder(QWidget* content) : content_(*content) { content->setParent(this); }

  QSize sizeHint() const override { return content_.sizeHint(); }
  QSize minimumSizeHint() const override { return LeastIn(width()); }
  // The least size where the width is to be this one or more.
  QSize LeastIn(int width) const {
    const QLayout& layout = *content_.layout();
    const QSize least = layout.totalMinimumSize();
    if (!layout.hasHeightForWidth()) return least;
    return {least.width(), layout.totalMinimumHeightForWidth(std::max(least.width(), width))};
  }

 protected:
  void resizeEvent(QResizeEvent*) override {
    content_.setGeometry(rect());
    updateGeometry();
  }
  bool event(QEvent* event) override {
    if (event->type() == QEvent::LayoutRequest) updateGeometry();
    return QWidget::event(event);
  }

 private:
  QWidget& content_;
};

}  // namespace

ScrollingContent::ScrollingContent(QWidget* content, QWidget* parent) : QScrollArea(parent) {
  setObjectName("content");
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  setWidget(new Holder(content));
}

QSize ScrollingContent::sizeHint() const {
  const auto* holder = static_cast<const Holder*>(widget());
  const QSize hint = holder->sizeHint();
  return hint.expandedTo(holder->LeastIn(hint.width()));
}

int ScrollingContent::HeightIn(int width) const {
  const auto* holder = static_cast<const Holder*>(widget());
  return std::max(holder->sizeHint().height(), holder->LeastIn(width).height());
}

bool ScrollingContent::eventFilter(QObject* watched, QEvent* event) {
  const bool handled = QScrollArea::eventFilter(watched, event);
  if (watched == widget() && event->type() == QEvent::LayoutRequest) {
    updateGeometry();
    ScrollIfNeeded();
  }
  return handled;
}

void ScrollingContent::resizeEvent(QResizeEvent* event) {
  ScrollIfNeeded();
  QScrollArea::resizeEvent(event);
}

// A bar makes the room narrower, whereupon rows wrap and need it. So it is asked first what the
// content takes without one.
void ScrollingContent::ScrollIfNeeded() {
  const QSize room = maximumViewportSize();
  const QSize least = static_cast<const Holder*>(widget())->LeastIn(room.width());
  const bool fits = least.width() <= room.width() && least.height() <= room.height();
  setVerticalScrollBarPolicy(fits ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
}

}  // namespace kvi
