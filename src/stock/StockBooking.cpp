#include "stock/StockBooking.h"

#include "base/Number.h"

namespace kvi {

namespace {

double FromTyped(double typed, const PartLevel& part, ShownAs units) {
  return units == ShownAs::Purchased ? typed : Divide(typed, part.hi_qty);
}

}  // namespace

double ShownQuantity(const PartLevel& part, ShownAs units) {
  return units == ShownAs::Purchased ? part.qty_on_hand : ValOf(part.qty_on_hand * part.hi_qty);
}

double ShownCost(const PartLevel& part, ShownAs units) {
  return units == ShownAs::Purchased ? part.cost_per : Divide(part.cost_per, part.hi_qty);
}

Booking BookCount(const PartLevel& part, double counted, ShownAs units) {
  const double quantity = FromTyped(counted, part, units);
  return {quantity, part.cost_per, quantity * part.cost_per, 0};
}

Booking BookPurchase(const PartLevel& part, double added, double cost, ShownAs units) {
  const double bought = FromTyped(added, part, units);
  // The cost is divided like the quantity, although it was divided for showing already: a line
  // saved untouched in how-inventoried units lowers the part's cost by the factor once more. This
  // is the booking that the stockrooms know, and it is kept.
  const double newCost = FromTyped(cost, part, units);
  return {part.qty_on_hand + bought, newCost, (part.qty_on_hand + bought) * newCost, bought};
}

}  // namespace kvi
