#pragma once

#include "jet/Database.h"

namespace kvi {

class Progress;

// What drifts apart between the parts, the locked periods and the purchases, and is mended before
// usage is reckoned. Each raises what the database raises; rows mended before it stay mended.

// Deletes history and purchases that lie in another profit center than their part. A part number
// that stands in two profit centers loses the history of both; rows without a profit center stay.
void PurgeForeignHistory(jet::Database& database, Progress& progress);

// Deletes the periods of the profit center that no row of history belongs to.
void DeleteEmptyPeriods(jet::Database& database, int profitCenter);

// Gives rows of history and purchases with a price of 0, of all profit centers, the present cost of
// their part. Of a part that costs nothing they stay as they are.
void RepairZeroPrices(jet::Database& database, Progress& progress);

}  // namespace kvi
