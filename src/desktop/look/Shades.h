#pragma once

#include <QColor>

// The one place that knows what a palette index looks like.
namespace kvi {

// The classic hue, for texts, tiles and the background of a screen; invalid for kToolkitColor.
QColor ClassicColor(int index);

// The background of a field, label or cell: the classic hue behind a coloured text, a soft tint of
// it behind black text, which must stay easy to read. Invalid for kToolkitColor.
QColor BackdropColor(int back, int fore);

// The ratio in which a text stands out from what it is on, 1 to 21, as accessibility rules reckon
// it; a text can be read from 4.5 on.
double Contrast(const QColor& one, const QColor& other);

// Dark or white, whichever reads better on a background.
QColor InkOn(const QColor& background);

// The ground on which a text can be read that is the nearest to the one given.
QColor GroundFor(const QColor& ink, const QColor& ground);

// `over` laid on `under`; strength 0 to 1.
QColor Blend(const QColor& under, const QColor& over, double strength);

}  // namespace kvi
