#pragma once

#include <span>
#include <string_view>

#include "platform/Desktop.h"

namespace kvi {

// A kind of label sheet, in inches, by its maker's drawing.
struct LabelSheet {
  const char* name;     // on the command line
  const char* caption;  // on the screen
  PaperSize paper;
  int across, down;
  double width, height;  // of one label
  double left, top;      // of the first
  double stepX, stepY;   // from one label to the next

  int Labels() const { return across * down; }
};

std::span<const LabelSheet> LabelSheets();
// Null for a name that there is not.
const LabelSheet* FindLabelSheet(std::string_view name);

}  // namespace kvi
