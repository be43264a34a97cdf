#pragma once

#include <string>
#include <vector>

#include "platform/Surface.h"

namespace kvi {

// A text as the lines that fit into a width (inches) in the font that is set: its own lines, broken
// at blanks, and inside of a word that is wider than the width, behind a hyphen where it has one.
// One line at least.
std::vector<std::string> WrapText(const Surface& page, const std::string& text, double width);

}  // namespace kvi
