#pragma once

namespace kvi {

// The units in which quantities and costs are shown and typed.
enum class ShownAs { Purchased, Inventoried };

// Levels and costs as they are stored: always in how-purchased units, of which each holds `hi_qty`
// how-inventoried ones.
struct PartLevel {
  double qty_on_hand = 0;
  double cost_per = 0;
  double hi_qty = 1;
};

double ShownQuantity(const PartLevel& part, ShownAs units);
// Raises 11 for a `hi_qty` of 0 in how-inventoried units, as do the two below.
double ShownCost(const PartLevel& part, ShownAs units);

// What a save writes into a part.
struct Booking {
  double qty_on_hand = 0;
  double cost_per = 0;
  double valuation = 0;
  double bought = 0;  // how-purchased units
};

// The count replaces the level; the value is the quantity at the part's cost, whatever the
// valuation method.
Booking BookCount(const PartLevel& part, double counted, ShownAs units);

// The quantity joins the level, and the cost replaces the part's.
Booking BookPurchase(const PartLevel& part, double added, double cost, ShownAs units);

}  // namespace kvi
