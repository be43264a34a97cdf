#include "stock/KVI_UpdateInventory.h"

#include "base/Flag.h"
#include "base/Format.h"
#include "base/Number.h"
#include "grids/ExportGridToSpreadsheet.h"
#include "grids/ItemSorts.h"
#include "grids/KVI_Find.h"
#include "grids/PaintingOff.h"
#include "grids/PrintScreenGrid.h"
#include "grids/SprdSubs.h"
#include "stock/CountVariance.h"
#include "stock/KVI_Invoice.h"

namespace kvi {

namespace {

constexpr int kRowsBeforeLoad = 500;
// Twips.
constexpr double kVarianceWidth = 800;
constexpr double kNarrowVarianceWidth = 750;

}  // namespace

KVI_UpdateInventory::KVI_UpdateInventory(Application& app)
    : KviScreen(app, "KVI_UpdateInventory", "Update Inventory",
                "Inventory - Update Inventory On-Hand and Prices") {
  var_perc.RightAligned = true;
  HandleEvents();
}

void KVI_UpdateInventory::HandleEvents() {
  TabStrip1.Click = [this] { ShowTab(TabStrip1.Tab == 0 ? Tab::Count : Tab::Purchase); };
  const auto reload = [this] {
    if (!settingUp_) LoadUpdateGrid();
  };
  SortCombo.Click = reload;
  show_ro.Click = reload;
  show_all.Click = reload;
  OptPurchased.Click = OptInventoried.Click = [this, reload] {
    ShowUnits();
    reload();
  };
  var_perc.Change = [this] { app_.settings.AcceptableVariance = Val(var_perc.Text()); };
  rv.Click = [this] { RecalculateVariance(); };
  svd.Click = [this] { SortByVariance(false); };
  sva.Click = [this] { SortByVariance(true); };
  save.Click = [this] { SaveUpdateGrid(); };
  print_lab.Click = [this] { PrintList(); };
  find_lab.Click = [this] { FindItem(); };
  // Coming back from there loads the grid again.
  ei.Click = [this] { app_.screens.ShowModal(app_.Get<KVI_Invoice>()); };
  exit_lab.Click = m_f_exit.Click = [this] { Exit(); };
  m_export.Click = [this] {
    ExportGridToSpreadsheet(Spread1, app_.SpreadsheetPath, app_.ProgramFolder, app_.desktop);
  };
  Spread1.CellEdited = [this](int, int) {
    changed_ = true;
    ShowPosition();
  };
  Spread1.HeadingClick = [this](int col) { ChooseSortOfColumn(SortCombo, col); };
  Spread1.KeptCols = {kNameColumn, kNumberColumn};
  Spread1.EmptyText = "No parts to show. Choose \"Show all items\", or add parts in Inventory.";
  Spread1.ActiveCellChanged = [this] { ShowPosition(); };
  Spread1.KeyPress = [this](int, int col, const std::string& key) {
    if (col < kQuantityColumn && TakesFirstLetter(Spread1.Text(0, col)))
      GoToFirstLetter(Spread1, col, key);
  };
}

void KVI_UpdateInventory::Prepare() {
  const Flag settingUp(settingUp_);
  SetUpColumns();
  OptPurchased.Value = true;
  show_all.Value = true;
  ShowUnits();
  var_perc.Text = Str(app_.settings.AcceptableVariance);
  tab_ = Tab::Count;
  TabStrip1.Tab = 0;
  SetUpTab();
  scan.Clear();
  changed_ = false;
}

void KVI_UpdateInventory::Activate() {
  // The row that the quick find chose stays, and so does what was typed.
  if (app_.ReturnedFromFind) {
    app_.ReturnedFromFind = false;
    return;
  }
  ClearGrid(Spread1);
  Spread1.SetMaxRows(kRowsBeforeLoad);
  ShadeGridRows(Spread1, app_.UseColors);
  {
    const Flag settingUp(settingUp_);
    SortCombo.SetListIndex(0);
  }
  GoToFirstCell(Spread1);
  LoadUpdateGrid();
}

void KVI_UpdateInventory::ShowUnits() {
  Spread1.SetHeading(kUnitColumn,
                     Units() == ShownAs::Purchased ? "How Purchased" : "How Inventoried");
}

void KVI_UpdateInventory::ShowPosition() {
  ShowGridRow(Spread1, StatusBar1, {kNameColumn, kNumberColumn, kDescriptionColumn}, Typed());
}

// What was typed on the other tab is gone without a question.
void KVI_UpdateInventory::ShowTab(Tab tab) {
  if (tab == tab_) return;
  const std::string lost = NotSaved(Spread1.TypedRows(), Typed());
  tab_ = tab;
  {
    const PaintingOff hidden(Spread1);
    SetUpTab();
    Spread1.ForgetTyping();
  }
  LoadUpdateGrid();
  if (!lost.empty()) Say(lost);
}

void KVI_UpdateInventory::SetUpTab() {
  const bool counting = tab_ == Tab::Count;
  Spread1.SetHeading(kQuantityColumn,
                     counting ? "Theoretical Quantity on Hand" : "Quantity To Add");
  Spread1.SetHeading(kEntryColumn, counting ? "New Quantity on Hand" : "Cost Per");
  Spread1.SetHeading(kDifferenceColumn, counting ? "Variance Diff" : "");
  Spread1.SetHeading(kPercentColumn, counting ? "Variance Percent" : "");
  for (const int col : {kDifferenceColumn, kPercentColumn})
    Spread1.SetColWidth(col, counting ? kVarianceWidth : 0);
  SetupSpreadsheet();
}

void KVI_UpdateInventory::SetupSpreadsheet() {
  const bool counting = tab_ == Tab::Count;
  const Block numbers{1, kQuantityColumn, -1, -1};
  Spread1.SetLock(numbers, true);
  Spread1.SetKind(numbers, CellKind::Number);
  Spread1.SetAlign(numbers, CellAlign::Right);
  SetInputCells();
  Spread1.EntryCol = counting ? kEntryColumn : kQuantityColumn;
  if (counting)
    for (const int col : {kDifferenceColumn, kPercentColumn})
      Spread1.SetColWidth(col, kNarrowVarianceWidth);
  // FrameVariance.
  for (Control* control : {static_cast<Control*>(&var_perc), static_cast<Control*>(&rv),
                           static_cast<Control*>(&svd), static_cast<Control*>(&sva)})
    control->Visible = counting;
  variancesFound_ = false;
}

void KVI_UpdateInventory::SetInputCells() {
  const Block cells{1, tab_ == Tab::Count ? kEntryColumn : kQuantityColumn, -1, kEntryColumn};
  Spread1.SetLock(cells, false);
  Spread1.SetBackColor(cells, kBrightCyan);
}

// Takes back no red of an earlier recalculation: a cell stays red until the next load or sort.
void KVI_UpdateInventory::RecalculateVariance() {
  const Hourglass busy(app_.desktop);
  const PaintingOff hidden(Spread1);
  for (int row = 1; row <= Spread1.MaxRows(); ++row) {
    const double counted = Val(Spread1.Text(row, kEntryColumn));
    const CountVariance variance = VarianceOfCount(Val(Spread1.Text(row, kQuantityColumn)), counted,
                                                   app_.settings.AcceptableVariance);
    Spread1.SetText(row, kDifferenceColumn, Format(variance.difference, "###0.0"));
    Spread1.SetText(row, kPercentColumn,
                    Format(variance.percent, counted == 0 ? "###0.0" : "#####0.0"));
    if (!variance.overLimit) continue;
    Spread1.SetBackColor(Block::Cell(row, kPercentColumn), kBrightRed);
    variancesFound_ = true;
  }
}

// Afterwards every variance is red, also one under the limit: the list is sorted to be looked
// through from its end.
void KVI_UpdateInventory::SortByVariance(bool ascending) {
  const Hourglass busy(app_.desktop);
  const PaintingOff hidden(Spread1);
  const Block variances{1, kDifferenceColumn, -1, kPercentColumn};
  Spread1.SetKind(variances, CellKind::Number);
  Spread1.SetAlign(variances, CellAlign::Right);
  Spread1.Sort(kPercentColumn, ascending);
  Spread1.MarkSorted(kPercentColumn);
  ShadeGridRows(Spread1, app_.UseColors);
  for (int row = 1; row <= Spread1.MaxRows(); ++row) {
    Spread1.SetBackColor(Block::Cell(row, kQuantityColumn), kWhite);
    Spread1.SetBackColor(Block::Cell(row, kEntryColumn), kBrightCyan);
    const bool differs = Val(Spread1.Text(row, kDifferenceColumn)) != 0;
    Spread1.SetBackColor({row, kDifferenceColumn, row, kPercentColumn},
                         differs ? kBrightRed : kWhite);
  }
}

void KVI_UpdateInventory::FindItem() {
  app_.Get<KVI_Find>().FindIn({.caller = Name(),
                               .grid = &Spread1,
                               .hidden = &Spread1,
                               .column = ColumnOfSortChoice(SortCombo.Text)});
}

void KVI_UpdateInventory::PrintList() {
  PrintScreenGrid(app_, *this, Spread1);
}

void KVI_UpdateInventory::Exit() {
  if (changed_ && AskYesNo("Changes have been made.  Save before exiting?")) {
    SaveUpdateGrid();
    changed_ = false;
  }
  // Comes also when the variances were printed already; a save has just taken them away.
  if (variancesFound_ && tab_ == Tab::Count &&
      AskYesNo("Variances must be printed before exiting.  Once you exit, any record of the actual "
               "variance is gone.  Print before exiting?"))
    PrintList();
  CloseScreen();
}

// A long list takes its memory along.
void KVI_UpdateInventory::EndVisit() {
  scan.Forget();
  Spread1.BlankRows();
}

Layout KVI_UpdateInventory::Arrange() {
  return Column(
      {BannerLayout(), Actions({&save, &rv, &svd, &sva, &print_lab, &find_lab, &ei, &exit_lab}),
       Row({Column({Of(OptPurchased), Of(OptInventoried)}), Column({Of(show_all), Of(show_ro)}),
            Field("Sor&t by:", SortCombo, 1.5), Field("S&can:", scan.Scan, 1.6), Gap()}),
       Tabs(TabStrip1, {Row({Field("Acceptable &variance %:", var_perc, 0.7), Gap()}),
                        Text("A quantity is added to what is on hand; a line without one updates "
                             "its cost alone.")}),
       Fill(Of(Spread1))});
}

}  // namespace kvi
