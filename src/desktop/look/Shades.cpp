#include "desktop/look/Shades.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/Palette.h"
#include "desktop/look/Look.h"

namespace kvi {

namespace {

struct Shade {
  QRgb classic;
  QRgb soft;
};

constexpr std::array<Shade, 16> kShades{{
    {0xFF000000, 0xFF000000},  // black has no tint
    {0xFF000080, 0xFFDCE6F7},
    {0xFF008000, 0xFFDCF0DE},
    {0xFF008080, 0xFFD6EFF0},
    {0xFF800000, 0xFFF9D9D7},
    {0xFF800080, 0xFFF1DDF1},
    {0xFF808000, 0xFFEFE9D0},
    {0xFFC0C0C0, 0xFFF1F3F6},
    {0xFF808080, 0xFFD9DCE0},
    {0xFF0000FF, 0xFFDBE7FF},
    {0xFF00FF00, 0xFFDDF7DC},
    {0xFF00FFFF, 0xFFE1F6F9},
    {0xFFFF0000, 0xFFFFE0DE},
    {0xFFFF00FF, 0xFFFBE1FA},
    {0xFFFFFF00, 0xFFFFF8D2},
    {0xFFFFFFFF, 0xFFFFFFFF},
}};

bool IsIndex(int index) {
  return index >= 0 && index < static_cast<int>(kShades.size());
}

constexpr double kReadable = 4.5;
// Of a figure whose colour tells something besides.
constexpr double kReadableFigure = 3;

double Luminance(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

const Shade& At(int index) {
  return kShades[static_cast<std::size_t>(index)];
}

}  // namespace

QColor ClassicColor(int index) {
  return IsIndex(index) ? QColor::fromRgb(At(index).classic) : QColor();
}

QColor BackdropColor(int back, int fore) {
  if (!IsIndex(back)) return {};
  const QColor soft = QColor::fromRgb(At(back).soft);
  const bool reads = !IsIndex(fore) || Contrast(ClassicColor(fore), soft) >= kReadableFigure;
  return reads ? soft : QColor::fromRgb(At(back).classic);
}

double Contrast(const QColor& one, const QColor& other) {
  const double a = Luminance(one) + 0.05, b = Luminance(other) + 0.05;
  return std::max(a, b) / std::min(a, b);
}

QColor InkOn(const QColor& background) {
  if (Contrast(kInk, background) >= kReadable) return kInk;
  const QColor white(Qt::white), black(Qt::black);
  return Contrast(white, background) > Contrast(black, background) ? white : black;
}

// White on a light grey goes darker, green on it as well; every ink has its black or white.
QColor GroundFor(const QColor& ink, const QColor& ground) {
  const QColor end =
      Contrast(ink, Qt::black) > Contrast(ink, Qt::white) ? QColor(Qt::black) : QColor(Qt::white);
  constexpr int kSteps = 50;
  for (int step = 0; step < kSteps; ++step) {
    const QColor nearer = Blend(ground, end, static_cast<double>(step) / kSteps);
    if (Contrast(ink, nearer) >= kReadable) return nearer;
  }
  return end;
}

QColor Blend(const QColor& under, const QColor& over, double strength) {
  const auto mix = [strength](int from, int to) { return qRound(from + (to - from) * strength); };
  return {mix(under.red(), over.red()), mix(under.green(), over.green()),
          mix(under.blue(), over.blue())};
}

}  // namespace kvi
