#include "desktop/look/BoxIcon.h"

#include <QPainter>

#include "desktop/look/Look.h"

namespace kvi {

namespace {

constexpr int kSize = 36;

struct Sign {
  QString glyph;
  QColor color;
};

Sign SignOf(Icon icon) {
  switch (icon) {
    case Icon::None:
      break;
    case Icon::Information:
      return {"i", kAccent};
    case Icon::Question:
      return {"?", kAccent};
    case Icon::Warning:
      return {"!", QColor(0xD9, 0x8A, 0x00)};
    case Icon::Error:
      return {QString(QChar(0x00D7)), kWarning};
  }
  return {};
}

}  // namespace

QPixmap BoxIcon(Icon icon, double scale) {
  const Sign sign = SignOf(icon);
  if (sign.glyph.isEmpty()) return {};
  QPixmap picture((QSizeF(kSize, kSize) * scale).toSize());
  picture.setDevicePixelRatio(scale);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(sign.color);
  painter.drawEllipse(QRectF(1, 1, kSize - 2, kSize - 2));
  QFont font = GridFont();
  font.setPixelSize(kSize * 2 / 3);
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(Qt::white);
  painter.drawText(QRectF(0, 0, kSize, kSize), Qt::AlignCenter, sign.glyph);
  return picture;
}

}  // namespace kvi
