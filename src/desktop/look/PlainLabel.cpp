#include "desktop/look/PlainLabel.h"

#include "desktop/look/Panel.h"
#include "desktop/look/Shades.h"

namespace kvi {

PlainLabel::PlainLabel(const QString& text, QWidget* parent) : ElidingLabel(parent) {
  constexpr qsizetype kSentence = 70;
  setText(text);
  setWordWrap(text.size() > kSentence);
}

void PlainLabel::Recolor() {
  QPalette palette;
  palette.setColor(QPalette::WindowText, InkOn(Panel::BackdropOf(*this)));
  setPalette(palette);
}

}  // namespace kvi
