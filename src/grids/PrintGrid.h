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
// one with a text, the headings on every page. Columns that do not fit side by side are shrunk to
// 70 % at most; if that is not enough, they go to further pages, behind all rows of the pages
// before. A text too long for its column is cut, a number too long shows as "###". Raises 482 when
// it cannot be printed.
void PrintGrid(Desktop& desktop, const Spread& grid, const GridPrint& print);

// The pages alone, on any surface; the document stays open.
void DrawGrid(Surface& surface, const Spread& grid, const GridPrint& print);

}  // namespace kvi
