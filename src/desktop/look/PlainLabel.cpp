#include "desktop/look/PlainLabel.h"

#include "desktop/look/Panel.h"
#include "desktop/look/Shades.h"

namespace kvi {

PlainLabel::PlainLabel(const QString& text, QWidget* parent) : QLabel(text, parent) {
  setTextFormat(Qt::PlainText);
}

void PlainLabel::Recolor() {
  QPalette palette;
  palette.setColor(QPalette::WindowText, InkOn(Panel::BackdropOf(*this)));
  setPalette(palette);
}

}  // namespace kvi
