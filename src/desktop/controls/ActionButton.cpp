#include "desktop/controls/ActionButton.h"

#include <QKeyEvent>
#include <QPainter>
#include <QTextLayout>
#include <cmath>
#include <map>

#include "desktop/look/QtText.h"
#include "desktop/look/Shades.h"

namespace kvi {

namespace {

constexpr int kTilePadding = 14;
constexpr int kTileLetters = 32;  // side by side in a tile
constexpr int kNumberWidth = 8;   // of the digit in its corner, beyond the padding
constexpr int kNarrowestTile = 150;
constexpr double kTilePoints = 11.5;
constexpr double kNumberPoints = 8;

// Lays a text out in lines of a width; returns the height.
double BreakLines(QTextLayout& layout, double width) {
  double height = 0;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    line.setPosition({0, height});
    height += line.height() + 2;
  }
  layout.endLayout();
  return height;
}

}  // namespace

ActionButton::ActionButton(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ActionButton::SetLook(Look look) {
  look_ = look;
  QFont face = font();
  if (look == Look::Tile) {
    face.setPointSizeF(kTilePoints);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  }
  setFont(face);
  updateGeometry();
}

void ActionButton::SetNumber(int number) {
  number_ = number;
  update();
}

void ActionButton::SetColors(const QColor& fore, const QColor& back) {
  fore_ = fore;
  back_ = back;
  update();
}

QSize ActionButton::sizeHint() const {
  if (look_ == Look::Tile) {
    const int width = kTileLetters * fontMetrics().averageCharWidth();
    return {width, std::max(heightForWidth(width), 3 * fontMetrics().height() + 2 * kTilePadding)};
  }
  const QSize text = fontMetrics().size(Qt::TextShowMnemonic, this->text());
  return look_ == Look::Action ? QSize(text.width() + 28, text.height() + 16)
                               : QSize(text.width() + 24, text.height() + 10);
}

QSize ActionButton::minimumSizeHint() const {
  if (look_ != Look::Tile) return sizeHint();
  return {kNarrowestTile, heightForWidth(kNarrowestTile)};
}

int ActionButton::heightForWidth(int width) const {
  QTextLayout layout;
  const double height = LayOutTile(layout, width);
  return static_cast<int>(std::ceil(height)) + kTilePadding;
}

void ActionButton::changeEvent(QEvent* event) {
  QAbstractButton::changeEvent(event);
  if (event->type() == QEvent::EnabledChange)
    setCursor(isEnabled() ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

// In a band the arrows go where they point, and nowhere else.
void ActionButton::keyPressEvent(QKeyEvent* event) {
  static const std::map<int, QPoint> arrows = {{Qt::Key_Left, {-1, 0}},
                                               {Qt::Key_Right, {1, 0}},
                                               {Qt::Key_Up, {0, -1}},
                                               {Qt::Key_Down, {0, 1}}};
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
  const auto arrow = arrows.find(event->key());
  if (arrow == arrows.end() || look_ == Look::Patch) return QAbstractButton::keyPressEvent(event);
  if (ActionButton* next = Neighbour(arrow->second)) next->setFocus(Qt::TabFocusReason);
}

ActionButton* ActionButton::Neighbour(const QPoint& direction) const {
  constexpr int kFar = 100000;
  const QPoint reach(direction.x() == 0 ? 0 : kFar, direction.y() == 0 ? 0 : kFar);
  const QRect beam(geometry().topLeft() - reach, geometry().bottomRight() + reach);
  ActionButton* nearest = nullptr;
  int distance = kFar;
  for (QObject* sibling : parentWidget()->children()) {
    auto* button = dynamic_cast<ActionButton*>(sibling);
    if (button == nullptr || !button->isVisible() || !button->isEnabled()) continue;
    const QPoint away = button->geometry().center() - geometry().center();
    const int ahead = QPoint::dotProduct(away, direction);
    if (ahead <= 0 || ahead >= distance || !beam.intersects(button->geometry())) continue;
    nearest = button;
    distance = ahead;
  }
  return nearest;
}

QColor ActionButton::Ground() const {
  if (isDown()) return GroundFor(fore_, Blend(back_, fore_, 0.22));
  return GroundFor(fore_, look_ == Look::Tile ? Blend(back_, fore_, 0.06) : back_);
}

void ActionButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF outline = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
  const QColor ground = Ground();
  const QColor ink = isEnabled() ? fore_ : Blend(ground, fore_, 0.42);
  painter.setPen(look_ == Look::Tile ? QPen(Blend(ground, ink, 0.32)) : QPen(Qt::NoPen));
  painter.setBrush(ground);
  painter.drawRoundedRect(look_ == Look::Patch ? QRectF(rect()) : outline, 4, 4);

  painter.setPen(ink);
  if (look_ == Look::Tile) {
    QTextLayout layout;
    const double taken = LayOutTile(layout, width());
    layout.draw(&painter, QPointF(kTilePadding, (height() - taken) / 2));
    QFont small = font();
    small.setPointSizeF(kNumberPoints);
    painter.setFont(small);
    if (number_ > 0)
      painter.drawText(rect().adjusted(8, 6, -8, -6), Qt::AlignRight | Qt::AlignTop,
                       QString::number(number_));
  } else {
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic, text());
  }
  if (hasFocus()) {
    painter.setPen(QPen(Blend(ground, fore_, 0.85), look_ == Look::Tile ? 2 : 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(look_ == Look::Tile ? outline : outline.adjusted(2, 2, -2, -2), 3, 3);
  }
}

// What stands before " - " names the module and is bold, what stands behind explains it.
double ActionButton::LayOutTile(QTextLayout& layout, int width) const {
  const QString shown = PlainCaption(text());
  const qsizetype dash = shown.indexOf(" - ");
  QTextCharFormat bold;
  bold.setFontWeight(QFont::Bold);
  layout.setText(shown);
  layout.setFont(font());
  layout.setFormats({{0, static_cast<int>(dash < 0 ? shown.size() : dash), bold}});
  return BreakLines(layout, width - 2 * kTilePadding - kNumberWidth);
}

}  // namespace kvi
