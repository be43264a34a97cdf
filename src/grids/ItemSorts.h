#pragma once

#include <string>

#include "platform/Controls.h"

namespace kvi {

// The orders in which the lists of parts can be sorted, and what each order means to a statement
// and to a search.

// Known to every list and offered by none of today's.
inline constexpr const char* kSortByLine = "Line #";

// Fills a sort combo with the choices of most lists. None is chosen.
void OfferItemSorts(ComboBox& combo);
// " ORDER BY ..." of a choice, by name for any other text. Part numbers sort as texts.
std::string ItemOrder(const std::string& choice);
// The column of the lists that holds what the choice sorts by; 0 where no column does.
int ColumnOfSortChoice(const std::string& choice);
// Chooses the sort whose column's heading was clicked; nothing where the combo offers none.
void ChooseSortOfColumn(ComboBox& combo, int column);

}  // namespace kvi
