#pragma once

#include <string>

#include "platform/Desktop.h"
#include "platform/Spread.h"
#include "platform/Surface.h"

namespace kvi {

// What is said of a print of a grid beside the grid itself. Header and footer are in print codes
// (PrintCodes.h).
struct GridPrint {
  std::string jobName;
  std::string header;
  std::string footer;
};

// Prints a grid as it stands, as one document: every visible column and all rows down to the last
// one with a text, the headings on every page. How columns share the page stands at GridStrips. A
// text too long for its column ends in an ellipsis, a figure too long shows as "###". The user sees
// how far it is and may cancel, which drops the document. Raises 482 when it cannot be printed.
void PrintGrid(Desktop& desktop, const Spread& grid, const GridPrint& print);

}  // namespace kvi
