#pragma once

#include <QLabel>

namespace kvi {

// A fixed text on a panel, readable on whatever colour the panel has.
class PlainLabel : public QLabel {
  Q_OBJECT  // for findChildren
      public : PlainLabel(const QString& text, QWidget* parent);
  // Takes the ink for the colour below.
  void Recolor();
};

}  // namespace kvi
