#pragma once

#include "jet/Database.h"
#include "platform/Desktop.h"

namespace kvi {

// Fills the holes of I_Master at every start: blank used and inventoried units become "each", a
// used quantity below 0.0001 becomes 1, missing levels and amounts become 0. how_purchased and
// hi_qty are left alone, deliberately unlike their sister fields. A failure is a box, and the start
// goes on with what was reached.
void RepairItemDefaults(jet::Database& database, Desktop& desktop);

// I_Master must hold at least one row: adds the inactive part "999999". Where the number is unique
// and stands already, the row is there and nothing is done. `items` is left open on the whole
// table.
void EnsureBaseRecord(jet::Database& database, jet::Recordset& items);

}  // namespace kvi
