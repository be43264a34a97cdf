#include "desktop/controls/SheetAdapters.h"

#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>

#include "desktop/look/Look.h"
#include "desktop/look/QtText.h"
#include "desktop/printing/MarkPainter.h"
#include "desktop/window/ScreenWindow.h"
#include "platform/Gestures.h"

namespace kvi {

namespace {

constexpr int kLeastPercent = 50, kMostPercent = 400, kStepPercent = 25;
constexpr int kWheelNotch = 120;
constexpr double kTallestText = 0.3;  // inches

}  // namespace

ScrollBarAdapter::ScrollBarAdapter(ScrollBar& bar, ScreenWindow& window)
    : TypedAdapter(bar,
                   new QScrollBar(bar.GetDirection() == ScrollBar::Direction::Down ? Qt::Vertical
                                                                                   : Qt::Horizontal,
                                  &window),
                   window) {
  shown_.setFocusPolicy(Qt::StrongFocus);
  connect(&shown_, &QScrollBar::valueChanged, this, [this](int value) {
    if (!IsShowing()) Hand([&](Gestures& user) { user.Scroll(control_, value); });
  });
}

void ScrollBarAdapter::ShowState() {
  shown_.setRange(0, control_.Max);
  shown_.setSingleStep(control_.SmallChange);
  shown_.setPageStep(control_.LargeChange);
  shown_.setValue(control_.Value);
}

SheetWindow::SheetWindow(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
}

void SheetWindow::SetSheet(const Canvas& canvas) {
  canvas_ = &canvas;
  update();
}

double SheetWindow::PixelsPerInch() const {
  return logicalDpiX() * percent_ / 100.0;
}

void SheetWindow::TellInside() {
  const auto twips = [&](int pixels) {
    return static_cast<int>(pixels * kTwipsPerInch / PixelsPerInch());
  };
  if (InsideChanged) InsideChanged(twips(width()), twips(height()));
}

void SheetWindow::Zoom(int steps) {
  percent_ =
      steps == 0 ? 100 : std::clamp(percent_ + steps * kStepPercent, kLeastPercent, kMostPercent);
  TellInside();
  update();
}

void SheetWindow::resizeEvent(QResizeEvent*) {
  TellInside();
}

void SheetWindow::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.fillRect(rect(), kHeadingColor);
  if (canvas_ == nullptr) return;
  const double pixels = PixelsPerInch(), perTwip = pixels / kTwipsPerInch;
  painter.translate(canvas_->Left * perTwip, canvas_->Top * perTwip);
  painter.fillRect(QRectF(0, 0, canvas_->Width() * perTwip, canvas_->Height() * perTwip),
                   Qt::white);
  const double top = (event->rect().top() - canvas_->Top * perTwip) / pixels;
  const double bottom = top + event->rect().height() / pixels;
  MarkPainter marks(painter, pixels);
  for (const PageMark& mark : canvas_->Marks())
    if (mark.y <= bottom && std::max(mark.y, mark.y2) + kTallestText >= top) marks.Paint(mark);
}

void SheetWindow::wheelEvent(QWheelEvent* event) {
  turned_ += event->angleDelta();
  const QPoint notches(turned_.x() / kWheelNotch, turned_.y() / kWheelNotch);
  turned_ -= notches * kWheelNotch;
  if (event->modifiers() & Qt::ControlModifier) {
    if (notches.y() != 0) Zoom(notches.y());
  } else if (Scrolled) {
    if (notches.y() != 0) Scrolled(Qt::Vertical, -notches.y(), false);
    if (notches.x() != 0) Scrolled(Qt::Horizontal, -notches.x(), false);
  }
  event->accept();
}

bool SheetWindow::ZoomByKey(const QKeyEvent& event) {
  if (!(event.modifiers() & Qt::ControlModifier)) return false;
  switch (event.key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      Zoom(1);
      return true;
    case Qt::Key_Minus:
      Zoom(-1);
      return true;
    case Qt::Key_0:
      Zoom(0);
      return true;
    default:
      return false;
  }
}

void SheetWindow::keyPressEvent(QKeyEvent* event) {
  if (ZoomByKey(*event) || !Scrolled) return;
  switch (event->key()) {
    case Qt::Key_Down:
      return Scrolled(Qt::Vertical, 1, false);
    case Qt::Key_Up:
      return Scrolled(Qt::Vertical, -1, false);
    case Qt::Key_PageDown:
      return Scrolled(Qt::Vertical, 1, true);
    case Qt::Key_PageUp:
      return Scrolled(Qt::Vertical, -1, true);
    case Qt::Key_Right:
      return Scrolled(Qt::Horizontal, 1, false);
    case Qt::Key_Left:
      return Scrolled(Qt::Horizontal, -1, false);
    default:
      QWidget::keyPressEvent(event);
  }
}

CanvasAdapter::CanvasAdapter(Canvas& canvas, ScreenWindow& window)
    : TypedAdapter(canvas, new SheetWindow(&window), window) {
  shown_.InsideChanged = [this](int width, int height) {
    Hand([&](Gestures& user) { user.Resize(control_, width, height); });
  };
  shown_.Scrolled = [this](Qt::Orientation along, int steps, bool large) {
    ScrollBar* bar = along == Qt::Vertical ? control_.Down : control_.Across;
    if (bar == nullptr) return;
    const int step = large ? bar->LargeChange : bar->SmallChange;
    Hand([&](Gestures& user) {
      user.Scroll(*bar, std::clamp<int>(bar->Value + steps * step, 0, bar->Max));
    });
  };
}

void CanvasAdapter::ShowState() {
  shown_.SetSheet(control_);
  shown_.setAccessibleDescription(ToQt(control_.Spoken()));
}

}  // namespace kvi
