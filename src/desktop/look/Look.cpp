#include "desktop/look/Look.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>

namespace kvi {

namespace {

class Style : public QProxyStyle {
 public:
  Style() : QProxyStyle(QStyleFactory::create("Fusion")) {}

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override {
    switch (hint) {
      case SH_LineEdit_PasswordCharacter:
        return '*';
      case SH_LineEdit_PasswordMaskDelay:
        return 0;
      case SH_DialogButtonBox_ButtonsHaveIcons:
        return 0;
      case SH_Table_GridLineColor:
        return static_cast<int>(kGridLine.rgb());
      default:
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
  }

  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override {
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    return type == CT_PushButton ? size + QSize(12, 4) : size;
  }

  // The heading behind the last column, which is not the grid's own to paint.
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override {
    if (element != CE_HeaderEmptyArea)
      return QProxyStyle::drawControl(element, option, painter, widget);
    painter->fillRect(option->rect, kHeadingColor);
    painter->setPen(kEdge);
    painter->drawLine(option->rect.bottomLeft(), option->rect.bottomRight());
  }
};

QPalette LightPalette() {
  QPalette palette(QColor(0xF0, 0xF2, 0xF4), kPanelColor);
  palette.setColor(QPalette::WindowText, kInk);
  palette.setColor(QPalette::Text, kInk);
  palette.setColor(QPalette::ButtonText, kInk);
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::AlternateBase, kPanelColor);
  palette.setColor(QPalette::Highlight, kAccent);
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::PlaceholderText, QColor(0x9A, 0xA1, 0xAB));
  palette.setColor(QPalette::ToolTipBase, QColor(0xFF, 0xFD, 0xEE));
  palette.setColor(QPalette::ToolTipText, kInk);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, QColor(0x9A, 0xA1, 0xAB));
  palette.setColor(QPalette::Disabled, QPalette::Base, kLockedColor);
  palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0xC5, 0xCB, 0xD3));
  // The selection keeps its colour while another window is in front.
  palette.setColor(QPalette::Inactive, QPalette::Highlight, kAccent);
  return palette;
}

QFont AppFont(double points) {
  QFont font("Liberation Sans");
  font.setStyleHint(QFont::SansSerif);
  font.setPointSizeF(points);
  return font;
}

// A shelf with three parts, in the colours of the banner.
QIcon ProgramIcon() {
  QPixmap picture(64, 64);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Qt::black);
  painter.drawRoundedRect(QRectF(2, 2, 60, 60), 10, 10);
  painter.setBrush(Qt::white);
  painter.drawRect(QRectF(12, 46, 40, 4));
  painter.drawRect(QRectF(14, 28, 12, 16));
  painter.drawRect(QRectF(28, 20, 10, 24));
  painter.setBrush(QColor(0x3A, 0xD8, 0x3A));
  painter.drawRect(QRectF(40, 33, 10, 11));
  return picture;
}

}  // namespace

void ApplyLook(QApplication& app) {
  QApplication::setStyle(new Style);
  QApplication::setPalette(LightPalette());
  QApplication::setFont(AppFont(10));
  QApplication::setWindowIcon(ProgramIcon());
  app.setEffectEnabled(Qt::UI_AnimateCombo, false);
}

QFont GridFont() {
  return AppFont(9);
}

}  // namespace kvi
