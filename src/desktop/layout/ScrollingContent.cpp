#include "desktop/layout/ScrollingContent.h"

#include <QEvent>
#include <QLayout>

namespace kvi {

namespace {

// Between the area and the content: an area takes the preferred height of a content with wrapping
// texts for its least one, this takes the least.
class Holder : public QWidget {
 public:
  explicit Holder(QWidget* content) : content_(*content) { content->setParent(this); }

  QSize sizeHint() const override { return content_.sizeHint(); }
  QSize minimumSizeHint() const override {
    const QLayout& layout = *content_.layout();
    const QSize least = layout.totalMinimumSize();
    if (!layout.hasHeightForWidth()) return least;
    return {least.width(), layout.totalMinimumHeightForWidth(std::max(least.width(), width()))};
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
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  setWidget(new Holder(content));
}

}  // namespace kvi
