#include "base/Flag.h"
#include "base/Format.h"
#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "frame/Wording.h"
#include "grids/ItemSorts.h"
#include "grids/PaintingOff.h"
#include "grids/SprdSubs.h"
#include "ordering/KVI_OrderSystem.h"
#include "ordering/ParSheet.h"
#include "store/RepairItemDefaults.h"

// What both tabs list, in which order, and how it is coloured.
namespace kvi {

namespace {

constexpr const char* kCostMask = "###0.00";
constexpr const char* kOrderedMask = "#####0.00";

template <class Map>
const typename Map::mapped_type* FindIn(const Map& map, const std::string& number) {
  const auto found = map.find(number);
  return found == map.end() ? nullptr : &found->second;
}

// A level that is missing shows as 0.
std::string Level(const Value& value) {
  const std::string text = Format(value, "###0.00");
  return text.empty() ? "0.00" : text;
}

}  // namespace

std::string KVI_OrderSystem::Query() const {
  std::string sql = "SELECT * FROM I_Master WHERE ";
  // The vendor goes in as it is: one with a quote in its name breaks the statement.
  if (app_.CurrentOrderVendor != kAllVendors)
    sql += "where1 = '" + app_.CurrentOrderVendor + "' AND ";
  return sql + " active = 'YES' and pcenter = " + Str(app_.CurrentProfitCenter) +
         ItemOrder(SortCombo.Text());
}

void KVI_OrderSystem::load_data() {
  Load([this] { FillGrid(nullptr); });
}

// The lines of the order that is chosen stand beside the parts. An order that another desk has
// taken away meanwhile shifts the others: then the list is read again.
void KVI_OrderSystem::OpenSavedOrder() {
  Load([this] {
    opened_ = OrderAt(app_.CurrentDatabase, app_.CurrentProfitCenter, orders.ListIndex());
    if (opened_.Eof() || opened_.Text("pso_name") != orders.Text()) return FillOrders();
    const OrderLines lines = LinesOfOrder(app_.CurrentDatabase, opened_);
    FillGrid(&lines);
  });
}

// A failing load is told and made once more: a lock may be gone by then. What fails the same way
// again would fail for ever (a vendor with a quote, kept from one start to the next), so the grid
// is left as far as it is filled, with no vendor chosen.
void KVI_OrderSystem::Load(const std::function<void()>& load) {
  const std::string lost = NotSaved(Spread1.TypedRows(), "line");
  for (int failedWith = 0;;) {
    try {
      load();
      break;
    } catch (const RunTimeError& error) {
      if (error.Number == failedWith) {
        ForgetVendor();
        break;
      }
      failedWith = error.Number;
      Inform(Str(error.Number) + " " + error.Description);
    }
  }
  changed_ = false;
  ShowPosition();
  if (!lost.empty()) Say(lost);
}

void KVI_OrderSystem::ForgetVendor() {
  app_.CurrentOrderVendor = kAllVendors;
  const Flag setting(settingUp_);
  VendorCombo.Text = kAllVendors;
}

// One order of painting for every way here: the rows, the stripes over them, the warnings over
// those, and the input columns last.
void KVI_OrderSystem::FillGrid(const OrderLines* order) {
  const Hourglass busy(app_.desktop);
  const PaintingOff hidden(Spread1);
  ClearGrid(Spread1);
  scan.Forget();
  if (!OpenItems()) return Spread1.SetMaxRows(0);
  const std::vector<int> low = FillRows(order);
  LockColumns();
  Spread1.MarkSorted(ColumnOfSortChoice(SortCombo.Text));
  ShadeGridRows(Spread1, app_.UseColors);
  for (const int row : low) Spread1.SetBackColor(Block::Cell(row, kLevelColumn), kBrightRed);
  PaintOrderInputColumns();
  if (Spread1.ActiveRow() < 1) GoToFirstCell(Spread1);
}

// False when the profit center has no part to list. A table without any row gets its base record.
bool KVI_OrderSystem::OpenItems() {
  jet::Recordset& items = app_.ItemSet;
  items = app_.CurrentDatabase.OpenRecordset(Query());
  if (!items.Eof()) return true;
  EnsureBaseRecord(app_.CurrentDatabase, items);
  items = app_.CurrentDatabase.OpenRecordset(Query());
  return !items.Eof();
}

// Fills the rows that are listed; returns those whose level is below the re-order level.
std::vector<int> KVI_OrderSystem::FillRows(const OrderLines* order) {
  jet::Recordset& items = app_.ItemSet;
  const bool placing = ShownTab() == Tab::Place;
  const OnOrder onOrder =
      placing ? QuantitiesOnOrder(app_.CurrentDatabase, app_.CurrentProfitCenter) : OnOrder();
  Spread1.SetMaxRows(items.RecordCount());
  Spread1.SetForeColor(Block::Column(kOnOrderColumn), kBlack);
  const auto progress = ReadingList(Spread1, app_.desktop, items.RecordCount());
  std::vector<int> low;
  int row = 0, read = 0;
  for (items.MoveFirst(); !items.Eof(); items.MoveNext()) {
    progress->Done(read++);
    const OrderLine* line = order ? FindIn(*order, Trim(items.Text("inv_id"))) : nullptr;
    if (!IsListed(items, line)) continue;
    FillRow(++row, items);
    if (placing) FillOnOrder(row, FindIn(onOrder, Trim(items.Text("inv_id"))));
    if (order) FillOrdered(row, line);
    if (IsBelowReOrder(items["qty_on_hand"], items["re_order"])) low.push_back(row);
  }
  Spread1.SetMaxRows(row);
  return low;
}

// Rows are decided before they are filled.
bool KVI_OrderSystem::IsListed(const jet::Recordset& part, const OrderLine* line) const {
  if (!ShowAboveZero.Value) return true;
  if (ShownTab() == Tab::Place) return !IsAtPar(part["optimal"], part["qty_on_hand"]);
  // By the cell's own text: a quantity that rounds to nothing is none.
  return line && Val(Format(line->quantity, kOrderedMask)) > 0;
}

void KVI_OrderSystem::FillRow(int row, const jet::Recordset& part) {
  int col = 0;
  for (const char* field : {"name", "Category", "Location", "inv_id", "desc", "how_purchased"})
    Spread1.SetText(row, ++col, part.Text(field));
  if (SortCombo.Text() == kSortByLine)
    Spread1.SetText(row, kNumberColumn, part.Text("account") + "/" + part.Text("inv_id"));
  for (const char* field : {"optimal", "re_order", "qty_on_hand"})
    Spread1.SetText(row, ++col, Level(part[field]));
  Spread1.SetText(row, kQuantityColumn, SuggestedOrder(part["optimal"], part["qty_on_hand"]));
  Spread1.SetText(row, kCostColumn, Format(part["cost_per"], kCostMask));
}

void KVI_OrderSystem::FillOnOrder(int row, const double* quantity) {
  Spread1.SetText(row, kOnOrderColumn, Format(quantity ? *quantity : 0.0, "###0.00"));
  if (quantity) Spread1.SetForeColor(Block::Cell(row, kOnOrderColumn), kBrightRed);
}

// A line without a price leaves the ordered cost blank, and the part's own cost stands.
void KVI_OrderSystem::FillOrdered(int row, const OrderLine* line) {
  const std::string quantity = line ? Format(line->quantity, kOrderedMask) : "0.00";
  Spread1.SetText(row, kQuantityColumn, quantity);
  Spread1.SetText(row, kOrderedColumn, quantity);
  if (!line) return Spread1.SetText(row, kOrderedCostColumn, "0.00");
  if (line->price <= 0) return;
  const std::string price = Format(line->price, kOrderedMask);
  Spread1.SetText(row, kCostColumn, price);
  Spread1.SetText(row, kOrderedCostColumn, price);
}

void KVI_OrderSystem::LockColumns() {
  Spread1.SetLock(Block::All(), true);
  const Block entries{1, kQuantityColumn, -1, LastEntryColumn()};
  Spread1.SetLock(entries, false);
  Spread1.SetKind(entries, CellKind::Number);
}

void KVI_OrderSystem::PaintOrderInputColumns() {
  const Block input{1, kQuantityColumn, -1, LastEntryColumn()};
  Spread1.SetForeColor(input, kBlack);
  Spread1.SetBackColor(input, kBrightCyan);
  Spread1.SetForeColor(Block::Column(kParColumn), kBlack);
}

}  // namespace kvi
