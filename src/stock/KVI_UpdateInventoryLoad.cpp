#include "base/Format.h"
#include "base/Number.h"
#include "grids/ItemSorts.h"
#include "grids/PaintingOff.h"
#include "grids/SprdSubs.h"
#include "stock/KVI_UpdateInventory.h"

// What both tabs list, and in which order.
namespace kvi {

namespace {

constexpr int kColumns = 17;
constexpr double kHeadingHeight = 600;  // twips
constexpr double kUsualWidth = 1000;    // twips

struct TextColumn {
  const char *heading, *field;
  double width;  // twips
};
constexpr TextColumn kTextColumns[] = {
    {"Name", "name", 1500},
    {"Category", "Category", kUsualWidth},
    {"Location", "Location", kUsualWidth},
    {"Number", "inv_id", kUsualWidth},
    {"Description", "desc", kUsualWidth},
};

}  // namespace

void KVI_UpdateInventory::SetUpColumns() {
  Spread1.SetMaxCols(kColumns);
  Spread1.SetRowHeight(0, kHeadingHeight);
  int col = 0;
  for (const TextColumn& column : kTextColumns) {
    Spread1.SetHeading(++col, column.heading);
    Spread1.SetColWidth(col, column.width);
  }
  for (col = kUnitColumn; col < kDifferenceColumn; ++col) Spread1.SetColWidth(col, kUsualWidth);
  for (col = kPercentColumn + 1; col <= kColumns; ++col) Spread1.SetColWidth(col, 0);
  Spread1.SetKind({1, 1, -1, kUnitColumn}, CellKind::Static);

  OfferItemSorts(SortCombo);
}

std::string KVI_UpdateInventory::Query() const {
  return "SELECT * FROM I_Master where active = 'YES' and pcenter = " +
         Str(app_.CurrentProfitCenter) + ItemOrder(SortCombo.Text);
}

void KVI_UpdateInventory::LoadUpdateGrid() {
  const std::string lost = NotSaved(Spread1.TypedRows(), Typed());
  // (Said once the grid paints again.)
  if (!LoadRows() && app_.screens.IsShown("Main"))
    Inform("No items in the system.  Click on the '+' icon to add a new item.");
  if (!lost.empty()) Say(lost);
}

// False when there is no part to list.
bool KVI_UpdateInventory::LoadRows() {
  const Hourglass busy(app_.desktop);
  const PaintingOff hidden(Spread1);
  app_.ItemSet = app_.CurrentDatabase.OpenRecordset(Query());
  const int count = app_.ItemSet.RecordCount();
  Spread1.SetMaxRows(count);
  scan.Forget();
  changed_ = false;
  if (count < 1) {
    ShowPosition();
    return false;
  }
  FillGrid();
  ShadeGridRows(Spread1, app_.UseColors);
  SetupSpreadsheet();
  Spread1.MarkSorted(ColumnOfSortChoice(SortCombo.Text));
  if (Spread1.ActiveRow() < 1) GoToFirstCell(Spread1);
  ShowPosition();
  return true;
}

// Rows that a failing walk did not reach stay blank, so that none shows another list's part.
void KVI_UpdateInventory::FillGrid() {
  Spread1.ClearText(Block::All());
  const auto progress = ReadingList(Spread1, app_.desktop, app_.ItemSet.RecordCount());
  int row = 0, read = 0;
  for (app_.ItemSet.MoveFirst(); !app_.ItemSet.Eof(); app_.ItemSet.MoveNext()) {
    progress->Done(read++);
    const double below = app_.ItemSet.Number("qty_on_hand") - app_.ItemSet.Number("re_order");
    if ((show_all.Value || below < 0) && CanShow(app_.ItemSet)) FillRow(++row, app_.ItemSet);
  }
  Spread1.SetMaxRows(row);
}

// Without a factor there is no cost per inventoried unit. Such a part stands in the list of
// purchased units alone: a line of it here would stop every save in its middle.
bool KVI_UpdateInventory::CanShow(const jet::Recordset& part) const {
  return tab_ == Tab::Count || Units() == ShownAs::Purchased || part.Number("hi_qty") != 0;
}

void KVI_UpdateInventory::FillRow(int row, const jet::Recordset& part) {
  int col = 0;
  for (const TextColumn& column : kTextColumns)
    Spread1.SetText(row, ++col, part.Text(column.field));
  if (SortCombo.Text() == kSortByLine)
    Spread1.SetText(row, kNumberColumn, part.Text("account") + "/" + part.Text("inv_id"));
  Spread1.SetText(row, kUnitColumn,
                  part.Text(Units() == ShownAs::Purchased ? "how_purchased" : "how_inv"));

  const PartLevel level{part.Number("qty_on_hand"), part.Number("cost_per"), part.Number("hi_qty")};
  if (tab_ == Tab::Purchase) {
    Spread1.SetText(row, kQuantityColumn, "0");
    Spread1.SetText(row, kEntryColumn, Format(ShownCost(level, Units()), "###0.00"));
    return;
  }
  const std::string quantity = Format(ShownQuantity(level, Units()), "##0.00");
  Spread1.SetText(row, kQuantityColumn, quantity);
  Spread1.SetText(row, kEntryColumn, quantity);
  Spread1.SetText(row, kDifferenceColumn, Format(0.0, "###0.0"));
  Spread1.SetText(row, kPercentColumn, Format(0.0, "###0.0"));
}

}  // namespace kvi
