#include "items/KVI_InventorySummary.h"

#include <algorithm>
#include <iterator>

#include "base/Flag.h"
#include "base/Format.h"
#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "frame/Wording.h"
#include "grids/ExportGridToSpreadsheet.h"
#include "grids/ItemSorts.h"
#include "grids/KVI_Find.h"
#include "grids/PaintingOff.h"
#include "grids/PrintScreenGrid.h"
#include "grids/SprdSubs.h"
#include "partgroups/UpdatePartGroupCosts.h"
#include "store/DropDown.h"
#include "store/SaveRecord.h"

namespace kvi {

namespace {

constexpr const char* kQuantity = "#####0.00";
constexpr const char* kCost = "$ #####0.0000";

// The grid's columns from the first on: the mask is empty for texts.
struct Column21 {
  const char *heading, *field, *mask;
};
constexpr Column21 kColumns[] = {
    {"Name", "name", ""},
    {"Category", "category", ""},
    {"Location", "location", ""},
    {"Part #", "inv_id", ""},
    {"Description", "desc", ""},
    {"How Purchased", "how_purchased", ""},
    {"Cost", "cost_per", kCost},
    {"On-Hand", "qty_on_hand", kQuantity},
    {"How Inventoried", "how_inv", ""},
    {"HI Qty.", "hi_qty", kQuantity},
    {"How Used", "how_used", ""},
    {"HU Qty.", "hu_qty", kQuantity},
    {"Re-order level", "re_order", kQuantity},
    {"Par level", "optimal", kQuantity},
    {"Active", "active", ""},
    {"Where 1", "where1", ""},
    {"Where 1 ID#", "w1_id", ""},
    {"Where 2", "where2", ""},
    {"Where 2 ID#", "w2_id", ""},
    {"Where 3", "where3", ""},
    {"Where 3 ID#", "w3_id", ""},
};
constexpr int kColumnCount = static_cast<int>(std::size(kColumns));
constexpr int kActiveColumn = 15;
constexpr int kLocationColumn = 3;
// The vendors' numbers.
constexpr int kVendorColumns[] = {17, 19, 21};
// The list counts its rows in 16 bits, and ends there. The search looks through all the others too.
constexpr int kMostRows = 32767;

std::string CellText(int column, const Value& value) {
  if (column == kActiveColumn) return UCase(value.Text()) == "YES" ? "Active" : "Not-Active";
  const char* mask = kColumns[column - 1].mask;
  return *mask == '\0' ? value.Text() : Format(value, mask);
}

}  // namespace

KVI_InventorySummary::KVI_InventorySummary(Application& app)
    : KviScreen(app, "KVI_InventorySummary", "Inventory Maintenance",
                "Inventory - Inventory Summary") {
  AutoRefresh.Value = true;
  HandleEvents();
}

void KVI_InventorySummary::HandleEvents() {
  CatCombo.Click = [this] {
    if (settingUp_) return;
    app_.CurrentCategory = CatCombo.Text;
    ReloadHidden(true);
  };
  VendorCombo.Click = [this] {
    if (settingUp_) return;
    app_.CurrentOrderVendor = VendorCombo.Text;
    ReloadHidden(true);
  };
  SortCombo.Click = [this] {
    if (!settingUp_) ReloadHidden(false);
  };
  AutoRefresh.Click = [this] {
    ShowRefreshMode();
    LoadItemGrid();
  };
  ManualRefresh.Click = [this] { ShowRefreshMode(); };
  refresh_lab.Click = [this] { LoadItemGrid(); };
  new_lab.Click = [this] { NewItem(); };
  duplicate.Click = [this] { DuplicateActive(); };
  remove.Click = [this] { RemoveActive(); };
  find_lab.Click = [this] { FindItem(); };
  print_lab.Click = [this] { PrintList(); };
  labels_lab.Click = [this] { PrintLabels(); };
  exit_lab.Click = [this] { exit_is(); };
  m_export.Click = [this] {
    ExportGridToSpreadsheet(Spread1, app_.SpreadsheetPath, app_.ProgramFolder, app_.desktop);
  };
  m_f_exit.Click = [this] { exit_is(); };
  Spread1.DblClick = [this](int row, int) { OpenItem(row); };
  Spread1.ActiveCellChanged = [this] { ShowPosition(); };
  Spread1.HeadingClick = [this](int col) { ChooseSortOfColumn(SortCombo, col); };
  Spread1.RowActions = {&duplicate, &remove};
  Spread1.KeptCols = {kNameColumn, kNumberColumn};
}

void KVI_InventorySummary::Prepare() {
  // The grid's width in twips on a display of 1366 pixels, of which the columns take their shares.
  constexpr double kGridWidth = 20000;
  constexpr double kShares[] = {6, 6.4, 6.4, 7.5, 6.4, 7.5, 7.5};
  Spread1.SetMaxCols(kColumnCount);
  for (int col = 1; col <= kColumnCount; ++col) {
    Spread1.SetHeading(col, kColumns[col - 1].heading);
    if (*kColumns[col - 1].mask != '\0') Spread1.SetAlign(Block::Column(col), CellAlign::Right);
  }
  for (int col = 1; col <= static_cast<int>(std::size(kShares)); ++col)
    Spread1.SetColWidth(col, kGridWidth / kShares[col - 1]);

  const Flag settingUp(settingUp_);
  OfferItemSorts(SortCombo);
  SortCombo.SetListIndex(0);
  search.Clear();
  scan.Clear();
  app_.PartGroupCostsStale = false;
}

void KVI_InventorySummary::Activate() {
  if (app_.ReturnedFromFind) {
    app_.ReturnedFromFind = false;
    return;
  }
  FillFilters();
  const PaintingOff hidden(Spread1);
  LoadColumnWidths(Spread1, *this, app_.CurrentDatabase);
  const int row = std::max(Spread1.ActiveRow(), 1);
  GoToFirstCell(Spread1);
  search.Forget();
  Spread1.SetMaxRows(0);
  Spread1.EmptyText = "Press Refresh to see the list.";
  ShowRefreshMode();
  if (AutoRefresh.Value) LoadItemGrid();
  ShadeGridRows(Spread1, app_.UseColors);
  LockGrid(Spread1);
  GoToRow(Spread1, std::min(row, Spread1.MaxRows()));
  ShowPosition();
}

// A list that cannot be read costs its filter alone.
void KVI_InventorySummary::FillFilters() {
  const LoadStatements run(app_.desktop);
  run([&] {
    FillFilter(CatCombo, "DD_category", kAllCategories, app_.CurrentCategory);
    app_.CurrentCategory = CatCombo.Text;
  });
  run([&] { FillFilter(VendorCombo, "Vendor_Info", kAllVendors, kAllVendors); });
}

// Filling is not choosing: neither the list nor the order system's vendor changes by it.
void KVI_InventorySummary::FillFilter(ComboBox& combo, const std::string& table,
                                      const std::string& all, const std::string& shown) {
  const Flag settingUp(settingUp_);
  FillDropDown(app_.CurrentDatabase, combo, table);
  combo.AddItem(all);
  combo.Text = combo.IndexOf(shown) < 0 ? all : shown;
}

bool KVI_InventorySummary::ShowsAll() const {
  return app_.CurrentCategory == kAllCategories && VendorCombo.Text() == kAllVendors;
}

std::string KVI_InventorySummary::Query() const {
  std::string sql =
      std::string("SELECT * FROM I_Master WHERE ") + " Pcenter = " + Str(app_.CurrentProfitCenter);
  if (app_.CurrentCategory != kAllCategories)
    sql += " AND Category = '" + app_.CurrentCategory + "' ";
  // Only the first vendor slot is filtered.
  const std::string vendor = Trim(VendorCombo.Text());
  if (!vendor.empty() && vendor != kAllVendors) sql += " AND where1 = '" + vendor + "' ";
  return sql + ItemOrder(SortCombo.Text) + ";";
}

void KVI_InventorySummary::LoadItemGrid() {
  const Hourglass busy(app_.desktop);
  if (Trim(app_.CurrentCategory).empty()) app_.CurrentCategory = kAllCategories;
  const PaintingOff hidden(Spread1);
  scan.Forget();
  search.Forget();
  try {
    FillGrid();
  } catch (const RunTimeError&) {
    // The rows filled so far stay, and no message comes.
  }
  search.Narrow();
  ShadeGridRows(Spread1, app_.UseColors);
  Spread1.MarkSorted(ColumnOfSortChoice(SortCombo.Text));
  ShowEmptyText();
  // (None is, behind an empty list.)
  if (Spread1.ActiveRow() < 1) GoToFirstCell(Spread1);
  ShowPosition();
}

void KVI_InventorySummary::FillGrid() {
  jet::Recordset items = app_.CurrentDatabase.OpenRecordset(Query());
  const auto progress = ReadingList(Spread1, app_.desktop, items.RecordCount());
  int row = 0;
  for (; !items.Eof(); items.MoveNext()) {
    if (++row > Spread1.MaxRows()) Spread1.SetMaxRows(row);
    for (int col = 1; col <= kColumnCount; ++col)
      Spread1.SetText(row, col, CellText(col, items[kColumns[col - 1].field]));
    progress->Done(row);
  }
  Spread1.SetMaxRows(row);
}

RowSearch::List KVI_InventorySummary::SearchedList() {
  std::vector<int> columns{kNameColumn, kNumberColumn, kDescriptionColumn, kLocationColumn};
  columns.insert(columns.end(), std::begin(kVendorColumns), std::end(kVendorColumns));
  return {Spread1, std::move(columns), kMostRows, [this] { ShowNarrowed(); }};
}

void KVI_InventorySummary::ShowNarrowed() {
  ShadeGridRows(Spread1, app_.UseColors);
  ShowEmptyText();
  ShowPosition();
}

void KVI_InventorySummary::ShowEmptyText() {
  Spread1.EmptyText = !search.Told().empty() ? "No part has all these words. Press Escape."
                      : ShowsAll()           ? "No parts yet. Press New."
                                             : "No parts pass the filters.";
}

void KVI_InventorySummary::ReloadHidden(bool shade) {
  const PaintingOff hidden(Spread1);
  LoadItemGrid();
  if (shade) ShadeGridRows(Spread1, app_.UseColors);
}

void KVI_InventorySummary::ShowRefreshMode() {
  refresh_lab.Enabled = !AutoRefresh.Value;
  Label2.Caption = AutoRefresh.Value
                       ? "(Double-Click on an item to view detail  information)"
                       : "(Double-Click on an item to view detail  information, Click Refresh "
                         "before sorting or deleting)";
}

void KVI_InventorySummary::ShowPosition() {
  ShowGridRow(Spread1, StatusBar1, {kNameColumn, kNumberColumn, kDescriptionColumn});
  const std::string found = search.Told(), part = StatusBar1.PanelText(2);
  if (!found.empty()) Say(part.empty() ? found : found + "   |   " + part);
}

void KVI_InventorySummary::FindItem() {
  app_.Get<KVI_Find>().FindIn(
      {.caller = Name(),
       .grid = &Spread1,
       .hidden = &Spread1,
       .column = ColumnOfSortChoice(SortCombo.Text),
       .nothingFound = "No items found - starting back at the top of spreadsheet."});
}

void KVI_InventorySummary::PrintList() {
  if (AskToPrint()) PrintScreenGrid(app_, *this, Spread1);
}

void KVI_InventorySummary::exit_is() {
  if (app_.PartGroupCostsStale) {
    if (AskYesNo("You have made changes that could affect " + kPartGroupLower +
                     " costs.\n\nWould you like to update " + kPartGroupLower +
                     " costs at this time?",
                 "Update " + kPartGroup + " Costs"))
      UpdatePartGroupCosts(app_);
    app_.PartGroupCostsStale = false;
  }
  Exit();
}

void KVI_InventorySummary::Unload() {
  SaveColumnWidths(Spread1, *this, app_.CurrentDatabase, app_.desktop);
}

// A long list takes its memory along.
void KVI_InventorySummary::EndVisit() {
  search.Forget();
  scan.Forget();
  Spread1.BlankRows();
}

Layout KVI_InventorySummary::Arrange() {
  return Column(
      {BannerLayout(),
       Actions({&new_lab, &duplicate, &remove, &find_lab, &refresh_lab, &print_lab, &labels_lab,
                &exit_lab}),
       Row({Field("&Category filter:", CatCombo, 2), Field("&Vendor filter:", VendorCombo, 2),
            Field("&Sort by:", SortCombo, 1.2), Of(AutoRefresh), Of(ManualRefresh), Gap()}),
       Row({Field("S&earch:", search.Search, 2.5), Field("Sc&an:", scan.Scan, 1.6), Of(Label2),
            Gap()}),
       Fill(Of(Spread1))});
}

}  // namespace kvi
