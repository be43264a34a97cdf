#pragma once

#include <functional>
#include <string>

#include "items/WorkingItem.h"
#include "platform/Desktop.h"

namespace kvi {

// The unit and cost rules of the working item: 1 how_purchased = hi_qty how_inv, and 1 how_inv =
// hu_qty how_used; cost, levels and prices are in the purchased unit.

// The money value of a part's level, asked anew at each recompute.
using ValueOfLevel = std::function<double(const std::string& number, double quantity, double cost)>;

// Formulas, captions, the computed costs and the displayed valuation, one after the other: each
// step works on the text that the steps before it left. It rewrites the cost itself, so digits
// behind the fourth are gone from then on.
void RecalcItemCosts(WorkingItem& item, const ValueOfLevel& valueOf);

// A used quantity of zero or less becomes 1, and the user is told.
void GuardUsedQuantity(WorkingItem& item, Desktop& desktop);

// One purchased unit more or less, without a lower bound. Until the next recompute the valuation
// is the plain product, with a "$".
void AddOnHand(WorkingItem& item);
void MinusOnHand(WorkingItem& item);

// A vendor (1 to 3) without a name cannot be chosen, and a choice whose vendor was blanked is
// cancelled.
void ApplyVendorAvailability(WorkingItem& item, int n);

// The masks of a cost and of an amount or a level.
inline constexpr const char* kCostMask = "#####0.0000";
inline constexpr const char* kAmountMask = "#####0.00";

}  // namespace kvi
