#pragma once

#include <optional>
#include <string>

#include "base/Date.h"
#include "jet/Recordset.h"

namespace kvi {

// One receipt of goods, as the purchase history holds it. Quantities and prices are in the
// purchased unit.
struct Purchase {
  std::string inv_id;
  Date day;  // of entry, without a time
  double quantity = 0;
  double price = 0;
  std::string transaction;  // where it came from

  // What was ordered, and in which profit center. A purchase that no order stands behind has none
  // of the three.
  struct Order {
    int profitCenter = 0;
    double quantity = 0;
    double price = 0;
  };
  std::optional<Order> order;
};

// Adds the receipt's row to a set on Hist_Purchases. Raises as Recordset::Update; an order field
// without an order keeps the table's default.
void AddPurchase(jet::Recordset& purchases, const Purchase& purchase);

}  // namespace kvi
