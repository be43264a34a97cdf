#pragma once

#include <QColor>
#include <QFont>

class QApplication;

namespace kvi {

// The look of all windows: Fusion on light panels, one font family, even margins.
inline constexpr QColor kPanelColor{0xF4, 0xF5, 0xF7};
inline constexpr QColor kInk{0x1E, 0x22, 0x28};
inline constexpr QColor kQuietInk{0x5A, 0x62, 0x6D};
inline constexpr QColor kEdge{0xC9, 0xCE, 0xD5};
inline constexpr QColor kGridLine{0xE1, 0xE4, 0xE9};
inline constexpr QColor kHeadingColor{0xE9, 0xEC, 0xF0};
inline constexpr QColor kLockedColor{0xEE, 0xF0, 0xF3};
inline constexpr QColor kAccent{0x2B, 0x6C, 0xB8};
inline constexpr QColor kWarning{0xC0, 0x39, 0x2B};

inline constexpr int kMargin = 12;   // around the content of a panel
inline constexpr int kSpacing = 10;  // between neighbours
inline constexpr int kLabelGap = 6;  // between a label and its field

void ApplyLook(QApplication& app);
QFont GridFont();

}  // namespace kvi
