#pragma once

#include <QColor>

// The one place that knows what a palette index looks like.
namespace kvi {

// The classic hue, for texts, tiles and the background of a screen; invalid for kToolkitColor.
QColor ClassicColor(int index);

// The background of a field, label or cell: the classic hue behind a coloured text, a soft tint of
// it behind black text, which must stay easy to read. Invalid for kToolkitColor.
QColor BackdropColor(int back, int fore);

// Black or white, whichever reads better on a background.
QColor InkOn(const QColor& background);

// `over` laid on `under`; strength 0 to 1.
QColor Blend(const QColor& under, const QColor& over, double strength);

}  // namespace kvi
