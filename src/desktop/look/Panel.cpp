#include "desktop/look/Panel.h"

#include <QMouseEvent>
#include <QPainter>

#include "desktop/look/Look.h"
#include "desktop/look/Shades.h"

namespace kvi {

Panel::Panel(QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
}

void Panel::SetColor(const QColor& color) {
  color_ = color;
  update();
}

QColor Panel::BackdropOf(const QWidget& widget) {
  for (const QWidget* below = widget.parentWidget(); below; below = below->parentWidget()) {
    const auto* panel = dynamic_cast<const Panel*>(below);
    if (panel != nullptr && panel->color_.isValid()) return panel->color_;
  }
  return kPanelColor;
}

void Panel::paintEvent(QPaintEvent*) {
  if (color_.isValid()) QPainter(this).fillRect(rect(), color_);
}

void Panel::mouseMoveEvent(QMouseEvent* event) {
  if (MouseOver) MouseOver();
  event->ignore();
}

TitledPanel::TitledPanel(QString title, QWidget* parent)
    : Panel(parent), title_(std::move(title)) {
  setAccessibleName(title_);
}

int TitledPanel::TitleHeight() const {
  return title_.isEmpty() ? 0 : fontMetrics().height() + 4;
}

void TitledPanel::paintEvent(QPaintEvent* event) {
  Panel::paintEvent(event);
  const QColor backdrop = BackdropOf(*this);
  const QColor ink = InkOn(backdrop);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Blend(backdrop, ink, 0.18));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, TitleHeight() + 0.5, -0.5, -0.5), 4, 4);
  QFont bold = font();
  bold.setBold(true);
  painter.setFont(bold);
  painter.setPen(Blend(backdrop, ink, 0.85));
  painter.drawText(QRect(1, 0, width(), TitleHeight()), Qt::AlignLeft | Qt::AlignTop, title_);
}

}  // namespace kvi
