#include "valuation/ItemValuation.h"

#include <cmath>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "frame/BulkWalk.h"
#include "platform/Hourglass.h"

namespace kvi {

namespace {

bool IsNothing(double qty) {
  constexpr double kLeast = 0.000001;
  return std::abs(qty) < kLeast;
}

// The receipts of a part in any profit center, newest first. Those of one day come as they lie in
// the database.
jet::Recordset Receipts(jet::Database& database, const std::string& inv_id) {
  return database.OpenRecordset("SELECT * FROM Hist_Purchases WHERE Inv_ID = '" + inv_id +
                                "' ORDER BY p_date DESC;");
}

double Quantity(const jet::Recordset& receipt) {
  return ValOf(receipt["p_qty"]);
}
double Price(const jet::Recordset& receipt) {
  return ValOf(receipt["Price"]);
}

// What the newest receipts cover of a quantity.
struct Layers {
  double cum = 0;    // quantity of the layers taken whole
  double take = 0;   // quantity taken of the layer that covers the rest
  double total = 0;  // money of both
};

// The oldest goods left first, so what is on hand came with the newest receipts.
Layers WalkLayers(jet::Recordset& receipts, double qty) {
  Layers layers;
  for (; !receipts.Eof(); receipts.MoveNext()) {
    const double received = Quantity(receipts);
    if (layers.cum + received >= qty) {
      layers.take = qty - layers.cum;
      layers.total += layers.take * Price(receipts);
      break;
    }
    layers.total += received * Price(receipts);
    layers.cum += received;
  }
  return layers;
}

// What the layers leave uncovered, at the part's cost. Layers of quantity 0 leave nothing.
double Remainder(double cum, double qty, double cost) {
  return cum != 0 && cum < qty ? (qty - cum) * cost : 0;
}

// Over the whole history, consumed or not. Fails when the quantities add up to 0.
double AveragePrice(jet::Recordset& receipts) {
  double cum = 0, total = 0;
  for (; !receipts.Eof(); receipts.MoveNext()) {
    const double received = Quantity(receipts);
    total += received * Price(receipts);
    cum += received;
  }
  return Divide(total, cum);
}

void Report(Desktop& desktop, const RunTimeError& error) {
  desktop.MsgBox({.text = Str(error.Number) + " " + error.Description, .icon = Icon::None});
}

// Whether the take that ends a walk counts as covered. Where it does not, and whole layers came
// before it, the remainder values it a second time at the part's cost. The screen does so and the
// pass over all parts does not, so the two figures differ, as the users know them to.
enum class LastTake { Counted, Forgotten };

double ValueOf(jet::Recordset& receipts, ValuationMethod method, double qty, double cost,
               LastTake lastTake) {
  switch (method) {
    case ValuationMethod::FIFO: {
      const Layers layers = WalkLayers(receipts, qty);
      const double cum = layers.cum + (lastTake == LastTake::Counted ? layers.take : 0);
      return layers.total + Remainder(cum, qty, cost);
    }
    case ValuationMethod::Weighted:
      return AveragePrice(receipts) * qty;
    case ValuationMethod::LastPrice:
      return qty * cost;
  }
  return 0;
}

// A part with a history keeps its figure when no method is on.
RowEnd Revalue(jet::Database& database, std::optional<ValuationMethod> method,
               jet::Recordset& item) {
  const double qty = item.Number("qty_on_hand"), cost = item.Number("cost_per");
  double valuation = 0;
  if (!IsNothing(qty)) {
    jet::Recordset receipts = Receipts(database, item.Text("Inv_id"));
    if (!receipts.Eof() && !method) return RowEnd::Leave;
    valuation =
        receipts.Eof() ? cost * qty : ValueOf(receipts, *method, qty, cost, LastTake::Counted);
  }
  item.Set("valuation", valuation);
  return RowEnd::Write;
}

}  // namespace

double ItemValuation(jet::Database& database, std::optional<ValuationMethod> method,
                     Desktop& desktop, const std::string& inv_id, double qty, double cost) {
  if (IsNothing(qty)) return 0;
  try {
    jet::Recordset receipts = Receipts(database, inv_id);
    if (receipts.Eof()) return qty * cost;
    return method ? ValueOf(receipts, *method, qty, cost, LastTake::Forgotten) : 0;
  } catch (const RunTimeError& error) {
    Report(desktop, error);
    return 0;
  }
}

void UpdateAllValuations(jet::Database& database, std::optional<ValuationMethod> method,
                         Desktop& desktop, int profitCenter) {
  try {
    const Hourglass busy(desktop);
    jet::Recordset items =
        database.OpenRecordset(std::string("SELECT * FROM I_Master WHERE ") +
                               " Pcenter = " + Str(profitCenter) + " order by inv_id");
    WalkAndChange(database, items,
                  [&](jet::Recordset& item) { return Revalue(database, method, item); });
  } catch (const RunTimeError& error) {
    desktop.SetPointer(MousePointer::Default);
    Report(desktop, error);
  }
}

}  // namespace kvi
