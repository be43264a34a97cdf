#pragma once

#include <QImage>
#include <algorithm>
#include <map>

#include "desktop/look/Shades.h"

namespace kvi::test {

// The contrast of what is painted: between the colour that most of the picture has and the one that
// stands out most from it. Frames at the edge do not count.
inline double PaintedContrast(const QImage& picture, int frame = 6) {
  std::map<QRgb, int> colors;
  for (int y = frame; y < picture.height() - frame; ++y)
    for (int x = frame; x < picture.width() - frame; ++x) ++colors[picture.pixel(x, y)];
  const auto most =
      std::ranges::max_element(colors, {}, [](const auto& color) { return color.second; });
  double contrast = 1;
  for (const auto& color : colors)
    contrast = std::max(contrast, Contrast(QColor(most->first), QColor(color.first)));
  return contrast;
}

}  // namespace kvi::test
