#pragma once

namespace kvi {

// Indexes into the classic 16-colour palette. The desktop alone knows the shades.
inline constexpr int kBlack = 0;
inline constexpr int kBlue = 1;
inline constexpr int kGreen = 2;
inline constexpr int kCyan = 3;
inline constexpr int kRed = 4;
inline constexpr int kMagenta = 5;
inline constexpr int kBrown = 6;
inline constexpr int kLightGrey = 7;
inline constexpr int kDarkGrey = 8;
inline constexpr int kBrightBlue = 9;
inline constexpr int kBrightGreen = 10;
inline constexpr int kBrightCyan = 11;
inline constexpr int kBrightRed = 12;
inline constexpr int kBrightMagenta = 13;
inline constexpr int kYellow = 14;
inline constexpr int kWhite = 15;

// No palette index: the colour that the toolkit gives a control of its kind.
inline constexpr int kToolkitColor = -1;

}  // namespace kvi
