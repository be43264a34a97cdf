#include "valuation/ItemValuation.h"

#include <cmath>
#include <functional>
#include <span>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "frame/BulkWalk.h"
#include "jet/KeyedQuery.h"
#include "platform/Hourglass.h"

namespace kvi {

namespace {

bool IsNothing(double qty) {
  constexpr double kLeast = 0.000001;
  return std::abs(qty) < kLeast;
}

// The receipts of a part in any profit center, newest first. Those of one day come as they lie in
// the database.
class Receipts {
 public:
  explicit Receipts(jet::Database& database)
      : query_(database,
               "SELECT p_qty, Price FROM Hist_Purchases WHERE Inv_ID = '?' ORDER BY p_date DESC;") {
  }

  using Take = std::function<bool(double quantity, double price)>;
  // Until `take` has enough and says false.
  void Walk(const std::string& inv_id, const Take& take) {
    query_.Walk(inv_id,
                [&](std::span<const Value> row) { return take(ValOf(row[0]), ValOf(row[1])); });
  }

  bool HasAny(const std::string& inv_id) {
    bool any = false;
    query_.Walk(inv_id, [&](std::span<const Value>) {
      any = true;
      return false;
    });
    return any;
  }

 private:
  jet::KeyedQuery query_;
};

// Whether the take that ends a walk over the layers counts as covered. Where it does not, and whole
// layers came before it, the remainder values it a second time at the part's cost. The screen does
// so and the pass over all parts does not, so the two figures differ, as the users know them to.
enum class LastTake { Counted, Forgotten };

// The oldest goods left first, so what is on hand came with the newest receipts; what they do not
// cover is worth the part's cost. Layers of quantity 0 leave nothing to cover.
double LayerValue(Receipts& receipts, const std::string& inv_id, double qty, double cost,
                  LastTake lastTake) {
  double cum = 0, total = 0;
  bool any = false;
  receipts.Walk(inv_id, [&](double received, double price) {
    any = true;
    const bool isLast = cum + received >= qty;
    const double take = isLast ? qty - cum : received;
    total += take * price;
    if (!isLast || lastTake == LastTake::Counted) cum += take;
    return !isLast;
  });
  if (!any) return qty * cost;
  return cum != 0 && cum < qty ? total + (qty - cum) * cost : total;
}

// Over the whole history, consumed or not. Fails when the quantities add up to 0.
double AverageValue(Receipts& receipts, const std::string& inv_id, double qty, double cost) {
  double cum = 0, total = 0;
  bool any = false;
  receipts.Walk(inv_id, [&](double received, double price) {
    any = true;
    total += received * price;
    cum += received;
    return true;
  });
  return any ? Divide(total, cum) * qty : qty * cost;
}

void Report(Desktop& desktop, const RunTimeError& error) {
  desktop.MsgBox({.text = Str(error.Number) + " " + error.Description, .icon = Icon::None});
}

// Nothing where a part has a history and no method is on.
std::optional<double> ValueOf(Receipts& receipts, std::optional<ValuationMethod> method,
                              const std::string& inv_id, double qty, double cost,
                              LastTake lastTake) {
  if (method == ValuationMethod::FIFO) return LayerValue(receipts, inv_id, qty, cost, lastTake);
  if (method == ValuationMethod::Weighted) return AverageValue(receipts, inv_id, qty, cost);
  // The last price is the part's cost, with a history or without one.
  const bool hasHistory = receipts.HasAny(inv_id);
  if (hasHistory && !method) return std::nullopt;
  return qty * cost;
}

RowEnd Revalue(Receipts& receipts, std::optional<ValuationMethod> method, jet::Recordset& item) {
  const double qty = item.Number("qty_on_hand");
  const auto valuation = IsNothing(qty) ? 0
                                        : ValueOf(receipts, method, item.Text("Inv_id"), qty,
                                                  item.Number("cost_per"), LastTake::Counted);
  if (!valuation) return RowEnd::Leave;
  item.Set("valuation", *valuation);
  return RowEnd::Write;
}

}  // namespace

double ItemValuation(jet::Database& database, std::optional<ValuationMethod> method,
                     Desktop& desktop, const std::string& inv_id, double qty, double cost) {
  if (IsNothing(qty)) return 0;
  try {
    Receipts receipts(database);
    return ValueOf(receipts, method, inv_id, qty, cost, LastTake::Forgotten).value_or(0);
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
    Receipts receipts(database);
    const auto progress = desktop.NewProgress("Valuations", false);
    progress->Begin("Valuing the parts", items.RecordCount());
    WalkAndChange(
        database, items, [&](jet::Recordset& item) { return Revalue(receipts, method, item); }, {},
        progress.get());
  } catch (const RunTimeError& error) {
    desktop.SetPointer(MousePointer::Default);
    Report(desktop, error);
  }
}

}  // namespace kvi
