#pragma once

#include <QPixmap>

#include "platform/Desktop.h"

namespace kvi {

// The sign of a message box, sharp at the scale given; null for none.
QPixmap BoxIcon(Icon icon, double scale);

}  // namespace kvi
