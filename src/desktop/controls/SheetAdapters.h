#pragma once

#include <QScrollBar>
#include <QWidget>
#include <functional>

#include "desktop/controls/ControlAdapter.h"
#include "platform/Canvas.h"

namespace kvi {

class ScrollBarAdapter : public TypedAdapter<ScrollBar, QScrollBar> {
 public:
  ScrollBarAdapter(ScrollBar& bar, ScreenWindow& window);

 protected:
  void ShowState() override;
  void ShowColors() override {}
};

// The window through which a sheet is seen, at a size of its user's choice. Only the marks in sight
// are painted.
class SheetWindow : public QWidget {
 public:
  explicit SheetWindow(QWidget* parent);

  void SetSheet(const Canvas& canvas);
  // By so many steps up or down; 0 is the paper's own size.
  void Zoom(int steps);

  std::function<void(int width, int height)> InsideChanged;  // twips
  // By so many small steps, or large ones.
  std::function<void(Qt::Orientation, int steps, bool large)> Scrolled;

  // Low, since the row that holds it gives no less; its screens take the whole display anyway.
  QSize sizeHint() const override { return {860, 320}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  double PixelsPerInch() const;
  void TellInside();
  bool ZoomByKey(const QKeyEvent& event);

  const Canvas* canvas_ = nullptr;
  int percent_ = 100;
  QPoint turned_;  // of the wheel, less than a notch
};

class CanvasAdapter : public TypedAdapter<Canvas, SheetWindow> {
 public:
  CanvasAdapter(Canvas& canvas, ScreenWindow& window);

 protected:
  void ShowState() override;
  void ShowColors() override {}
};

}  // namespace kvi
