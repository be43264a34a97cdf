#pragma once

#include <functional>

#include "items/WorkingItem.h"
#include "jet/Recordset.h"
#include "store/SaveRecord.h"

namespace kvi {

// The way between a row of I_Master and the working item: which field stands in which control.

// Runs one statement of a load, by the rules of that load.
using RunStatement = std::function<void(const std::function<void()>&)>;

// The fields that every load shows alike: the texts, the active flag and the picture. Null reads as
// an empty text; a drop list's combo keeps what it has where the field is blank.
void ShowTexts(WorkingItem& item, const jet::Recordset& row, const RunStatement& run);
void ShowCorporateFlag(WorkingItem& item, const jet::Recordset& row, const RunStatement& run);

// Numbers as a load on activation shows them, through their masks.
void ShowNumbers(WorkingItem& item, const jet::Recordset& row, const RunStatement& run);
// Prices, and the current vendor; any other value than 1 to 3 chooses none.
void ShowPrices(WorkingItem& item, const jet::Recordset& row, const RunStatement& run);

// Numbers as a step shows them, in their general text form. Prices and the vendor's choice are no
// part of it: they keep what the part before showed.
void ShowPlainNumbers(WorkingItem& item, const jet::Recordset& row, const RunStatement& run);

// Writes the fields of an open edit, in their fixed order, and sets right on the screen what cannot
// be saved as it stands: a blank unit, a quantity of zero.
void WriteFields(WorkingItem& item, int profitCenter, jet::Recordset& row, SaveStatements& run);

}  // namespace kvi
