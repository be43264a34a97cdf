#pragma once

#include "desktop/look/ElidingLabel.h"

namespace kvi {

// A fixed text on a panel, readable on whatever colour the panel has; a sentence takes several
// lines where it must.
class PlainLabel : public ElidingLabel {
  Q_OBJECT  // for findChildren
      public : PlainLabel(const QString& text, QWidget* parent);
  // Takes the ink for the colour below.
  void Recolor();
};

}  // namespace kvi
