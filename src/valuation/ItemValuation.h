#pragma once

#include <optional>
#include <string>

#include "frame/ValuationMethod.h"
#include "jet/Database.h"
#include "platform/Desktop.h"

namespace kvi {

// The money value of a part's stock, out of its purchases and by the method. Two routines work it
// out, one for the part on the screen and one for all parts, and they are no exact twins. Neither
// rounds. Quantities and costs are in the purchased unit.

// The value of `qty` of a part; what its history does not cover is worth `cost`. The number goes
// into the query as it is given. 0 when no method is on. A failure is a box, and the value is 0.
double ItemValuation(jet::Database& database, std::optional<ValuationMethod> method,
                     Desktop& desktop, const std::string& inv_id, double qty, double cost);

// Writes `valuation` of every part of the profit center, each by itself, under the hourglass. A
// part with a history keeps its figure when no method is on. A failure is a box and ends the pass;
// the parts before it keep their new value.
void UpdateAllValuations(jet::Database& database, std::optional<ValuationMethod> method,
                         Desktop& desktop, int profitCenter);

}  // namespace kvi
