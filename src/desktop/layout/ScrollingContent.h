#pragma once

#include <QScrollArea>

namespace kvi {

// A window's content. It shrinks as far as its layout can (the grids give way first); where the
// display is smaller still it scrolls, instead of being cut off.
class ScrollingContent : public QScrollArea {
 public:
  ScrollingContent(QWidget* content, QWidget* parent);
  // The content's own: the toolkit's would ask for a scroll bar from the start.
  QSize sizeHint() const override;
  // What it takes in a width that is not its own.
  int HeightIn(int width) const;

 protected:
  // It asks for more once its content does.
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void ScrollIfNeeded();
};

}  // namespace kvi
