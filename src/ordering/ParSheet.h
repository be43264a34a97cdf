#pragma once

#include <string>

#include "base/Value.h"

namespace kvi {

// The rules of the par sheet. All quantities are in the purchased unit, costs per purchased unit. A
// comparison with Null is never true, so that a part without a par level is listed with nothing to
// order. Cells are texts, as the grid holds them.

// The quantity that brings a part up to par, through its mask; "0.00" where nothing is missing. The
// re-order level has no say in it, nor has what is on order already.
std::string SuggestedOrder(const Value& optimal, const Value& onHand);
// Whether the level is known to be at par or above.
bool IsAtPar(const Value& optimal, const Value& onHand);
// Whether a level is strictly below the re-order level.
bool IsBelowReOrder(const Value& onHand, const Value& reOrder);

// A quantity cell after each option of the menu.
std::string RoundedUp(const std::string& quantity);
// `percent` of 0 changes nothing and is the caller's to catch; a 0 becomes ".00" by its mask, and
// nothing keeps a quantity from becoming negative.
std::string Adjusted(const std::string& quantity, double percent);
std::string LessOnOrder(const std::string& quantity, const std::string& onOrder);

// One line's part in the order's total. Raises 13 for a quantity that is no number, a blank one
// too.
double LineTotal(const std::string& quantity, const std::string& cost);
// Whether the quantity would take the level over par, in 15 digits: 0.10 and 0.20 are at par 0.30.
bool GoesOverPar(const std::string& par, const std::string& level, const std::string& quantity);

}  // namespace kvi
