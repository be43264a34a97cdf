#pragma once

#include <vector>

#include "grids/TextRuler.h"
#include "platform/Spread.h"

namespace kvi {

// A column on paper, in inches from the left edge of the page.
struct PrintedColumn {
  int col;
  double x, width;
};

// The columns that stand side by side on a page.
using Strip = std::vector<PrintedColumn>;

// The columns of a grid side by side, as they go on pages of a width. A column is as wide as it is
// in the grid, less what its texts do not need where room is short, and more where texts would be
// cut and others leave room; words of headings and figures always have theirs. Letters shrink to
// 80 % where texts would be cut still, to 70 % where the page would be too narrow; what is wider
// goes on strips in full size, each of which begins with the columns that the grid keeps in view.
struct GridStrips {
  double scale = 1;
  double padding = 0;         // inches, left and right of a text
  std::vector<Strip> strips;  // one at least
};

// `cells` and `headings` measure at scale 1; the strips' sizes are of the scale found.
GridStrips LayOutStrips(const Spread& grid, int lastRow, double left, double room,
                        const TextRuler& cells, const TextRuler& headings);

}  // namespace kvi
