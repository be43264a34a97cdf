#include "desktop/Look.h"

#include <QApplication>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleFactory>

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
      case SH_MessageBox_CenterButtons:
        return 1;
      default:
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
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

}  // namespace

void ApplyLook(QApplication& app) {
  QApplication::setStyle(new Style);
  QApplication::setPalette(LightPalette());
  QApplication::setFont(AppFont(10));
  app.setEffectEnabled(Qt::UI_AnimateCombo, false);
}

QFont GridFont() {
  return AppFont(9);
}

}  // namespace kvi
