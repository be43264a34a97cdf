#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "base/Date.h"
#include "jet/Database.h"
#include "jet/KeyedRows.h"
#include "platform/Clock.h"

namespace kvi {

// The saved par-sheet orders of a profit center: a row of PSO_Master each, and their lines in
// PSO_Detail. An order is told by its place in the table's order, so that two of one name stay
// apart; orders that drew the same id share their lines.

// A line as it was ordered: the purchased unit, and the cost of one.
struct OrderLine {
  std::string inv_id;
  double quantity = 0;
  double price = 0;
};

struct SavedOrder {
  int profitCenter = 0;
  int id = 0;
  std::string name;
  Date date;
  std::vector<OrderLine> lines;
};

// By part number, compared as in a statement; a quote in a number breaks nothing here.
template <class T>
using ByPart = std::unordered_map<std::string, T, jet::TextHash, jet::TextEqual>;
// Lines by their trimmed number; of two for one part the first counts.
using OrderLines = ByPart<OrderLine>;
// The quantity on order by the number as stored.
using OnOrder = ByPart<double>;

// A whole number from 1 to 30000, drawn in single precision and not tested for uniqueness.
int NewOrderId(Chance& chance);

// The names, in the order in which positions count.
std::vector<std::string> OrderNames(jet::Database& database, int profitCenter);
// Stands on the order at a position from 0 on (-1 is the first one too), or at its end where there
// is none.
jet::Recordset OrderAt(jet::Database& database, int profitCenter, int position);

OrderLines LinesOfOrder(jet::Database& database, const jet::Recordset& order);
// The sum of the lines of every saved order of the profit center, whoever the vendor.
OnOrder QuantitiesOnOrder(jet::Database& database, int profitCenter);

// Writes an order with its lines, all or nothing. The name is cut to 50 characters.
void WriteOrder(jet::Database& database, const SavedOrder& order);
// Marks an opened order as being received. Raises 3197 when another desk has marked it since it was
// opened, 3167 when it is gone: of two desks that receive one order the second books nothing.
void ClaimOrder(jet::Recordset& order, const Date& now);
// Removes an order with every line that bears its id, in any profit center; all or nothing. Raises
// 3167 when it is gone.
void DeleteOrder(jet::Database& database, jet::Recordset& order);

}  // namespace kvi
