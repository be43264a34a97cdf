#pragma once

#include "items/WorkingItem.h"
#include "jet/Recordset.h"
#include "store/SaveRecord.h"

namespace kvi {

// The way between a row of I_Master and the working item: which field stands in which control.

// Brings all fields of the current row into memory, so that none of them fails later on.
void FetchWhole(const jet::Recordset& row);

// The fields that every load shows alike: the texts, the active flag and the picture. Null reads as
// an empty text; a drop list's combo keeps what it has where the field is blank.
void ShowTexts(WorkingItem& item, const jet::Recordset& row, const LoadStatements& run);
void ShowCorporateFlag(WorkingItem& item, const jet::Recordset& row, const LoadStatements& run);

// Numbers as a load on activation shows them, through their masks.
void ShowNumbers(WorkingItem& item, const jet::Recordset& row, const LoadStatements& run);
// Prices, and the current vendor; any other value than 1 to 3 chooses none.
void ShowPrices(WorkingItem& item, const jet::Recordset& row, const LoadStatements& run);

// Numbers as a step shows them, in their general text form. Prices and the vendor's choice are no
// part of it: they keep what the part before showed.
void ShowPlainNumbers(WorkingItem& item, const jet::Recordset& row, const LoadStatements& run);

// Writes the fields of an open edit, in their fixed order, and sets right on the screen what cannot
// be saved as it stands: a blank unit, a quantity of zero.
void WriteFields(WorkingItem& item, int profitCenter, jet::Recordset& row);

}  // namespace kvi
