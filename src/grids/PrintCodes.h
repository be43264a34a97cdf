#pragma once

#include <string>
#include <vector>

#include "platform/CellFormat.h"

namespace kvi {

// A stretch of a printed header or footer line.
struct PrintedText {
  std::string text;
  std::string fontName = "Arial";
  double fontSize = 10;
  CellAlign align = CellAlign::Left;
  bool operator==(const PrintedText&) const = default;
};
using PrintedLine = std::vector<PrintedText>;

// Reads the print codes of a grid's header or footer: /fn"Arial" font name, /fz"14" font size, /l
// /c /r left, centred, right, /n new line, /p page number, // a slash. A font holds for its line.
// Other font codes print nothing; any other slash is text, as dates have it. No codes, no lines.
std::vector<PrintedLine> ReadPrintCodes(const std::string& codes, int page);

// A text that prints as it stands among codes.
std::string PlainPrintText(const std::string& text);

}  // namespace kvi
