#include "desktop/look/ElidingLabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>
#include <algorithm>

namespace kvi {

namespace {

constexpr int kLetters = 34;  // that always show

}  // namespace

ElidingLabel::ElidingLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
}

QSize ElidingLabel::Bounded(const QSize& size) const {
  if (wordWrap()) return size;
  return {std::min(size.width(), kLetters * fontMetrics().averageCharWidth()), size.height()};
}

QSize ElidingLabel::sizeHint() const {
  return asksForLittle_ ? Bounded(QLabel::sizeHint()) : QLabel::sizeHint();
}

QSize ElidingLabel::minimumSizeHint() const {
  return Bounded(QLabel::minimumSizeHint());
}

bool ElidingLabel::IsCut() const {
  return !wordWrap() && QLabel::sizeHint().width() > width();
}

void ElidingLabel::paintEvent(QPaintEvent* event) {
  if (!IsCut()) return QLabel::paintEvent(event);
  QPainter painter(this);
  const int flags = Qt::TextSingleLine | (buddy() == nullptr ? 0 : Qt::TextShowMnemonic);
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, width(), flags);
  if (autoFillBackground()) painter.fillRect(rect(), palette().window());
  style()->drawItemText(&painter, rect(), static_cast<int>(alignment().toInt()) | flags, palette(),
                        isEnabled(), shown, foregroundRole());
}

bool ElidingLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || !toolTip().isEmpty() || !IsCut())
    return QLabel::event(event);
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), Qt::convertFromPlainText(text()),
                     this);
  return true;
}

}  // namespace kvi
