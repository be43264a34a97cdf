#include "stock/KVI_UpdateInventory.h"

#include <algorithm>
#include <iterator>

#include "base/Format.h"
#include "base/Number.h"
#include "frame/Main.h"
#include "items/KVI_Find.h"
#include "stock/CountVariance.h"
#include "stock/KVI_Invoice.h"
#include "utilities/ExportGridToSpreadsheet.h"
#include "utilities/PrintScreenGrid.h"
#include "utilities/SprdSubs.h"

namespace kvi {

namespace {

constexpr int kColumns = 17;
constexpr int kUnitColumn = 6;
constexpr int kFirstNumberColumn = 7;
constexpr int kDifferenceColumn = 9;
constexpr int kPercentColumn = 10;
constexpr int kRowsBeforeLoad = 500;
// Twips.
constexpr double kHeadingHeight = 600;
constexpr double kVarianceWidth = 800;
constexpr double kNarrowVarianceWidth = 750;

struct TextColumn {
  const char *heading, *field;
  double width;  // twips
};
constexpr TextColumn kTextColumns[] = {
    {"Name", "name", 1500},     {"Category", "Category", 1000}, {"Location", "Location", 1000},
    {"Number", "inv_id", 1000}, {"Description", "desc", 1000},
};

struct SortChoice {
  const char *text, *order;
};
// "Line #" is not offered by this screen's list.
constexpr SortChoice kSortChoices[] = {
    {"Name", " ORDER BY name"},
    {"Description", " ORDER BY [desc], name"},
    {"Location", " ORDER BY location, name"},
    {"Category", " ORDER BY category, name"},
    {"#", " ORDER BY inv_id, name"},
    {"Line #", " ORDER BY account, name"},
};
constexpr int kOfferedSortChoices = 5;
constexpr const char* kLineNumber = "Line #";

// Columns in which a typed letter goes to the first cell that begins with it. This screen heads its
// part numbers otherwise, and so has no such search in them.
bool TakesFirstLetter(const std::string& heading) {
  constexpr const char* kHeadings[] = {"Name",     "Category", "Description",
                                       "Location", "#",        "Account #"};
  return std::ranges::count(kHeadings, heading) > 0;
}

// Stops painting for the length of a routine.
class PaintingOff {
 public:
  explicit PaintingOff(Spread& grid) : grid_(grid) { grid_.SetReDraw(false); }
  ~PaintingOff() { grid_.SetReDraw(true); }
  PaintingOff(const PaintingOff&) = delete;
  PaintingOff& operator=(const PaintingOff&) = delete;

 private:
  Spread& grid_;
};

Block VarianceCells(int row) {
  return {row, kDifferenceColumn, row, kPercentColumn};
}

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
  exit_lab.Click = [this] { Leave(); };
  m_export.Click = [this] {
    ExportGridToSpreadsheet(Spread1, app_.SpreadsheetPath, app_.ProgramFolder, app_.desktop);
  };
  m_f_exit.Click = [this] { Leave(); };
  Spread1.CellEdited = [this](int, int) { changed_ = true; };
  Spread1.ActiveCellChanged = [this] { ShowPosition(); };
  Spread1.KeyPress = [this](int, int col, const std::string& key) {
    if (col < kFirstNumberColumn && TakesFirstLetter(Spread1.Text(0, col)))
      GoToFirstLetter(Spread1, col, key);
  };
}

void KVI_UpdateInventory::Prepare() {
  settingUp_ = true;
  Spread1.SetMaxCols(kColumns);
  Spread1.SetRowHeight(0, kHeadingHeight);
  int col = 0;
  for (const TextColumn& column : kTextColumns) {
    Spread1.SetHeading(++col, column.heading);
    Spread1.SetColWidth(col, column.width);
  }
  for (col = kUnitColumn; col < kDifferenceColumn; ++col) Spread1.SetColWidth(col, 1000);
  for (col = kPercentColumn + 1; col <= kColumns; ++col) Spread1.SetColWidth(col, 0);
  Spread1.SetKind({1, 1, -1, kUnitColumn}, CellKind::Static);

  SortCombo.Clear();
  for (int choice = 0; choice < kOfferedSortChoices; ++choice)
    SortCombo.AddItem(kSortChoices[choice].text);
  OptPurchased.Value = true;
  show_all.Value = true;
  ShowUnits();
  var_perc.Text = Str(app_.settings.AcceptableVariance);
  tab_ = Tab::Count;
  TabStrip1.Tab = 0;
  SetUpTab();
  changed_ = false;
  settingUp_ = false;
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
  settingUp_ = true;
  SortCombo.SetListIndex(0);
  settingUp_ = false;
  GoToFirstCell(Spread1);
  LoadUpdateGrid();
}

std::string KVI_UpdateInventory::Query() const {
  const std::string center = Str(app_.CurrentProfitCenter);
  const std::string& choice = SortCombo.Text();
  if (choice == kSortChoices[0].text)
    return "SELECT * FROM I_Master where pcenter = " + center + " and active = 'YES'" +
           kSortChoices[0].order;
  const std::string sql = "SELECT * FROM I_Master where active = 'YES' and pcenter = " + center;
  const auto* found = std::ranges::find(kSortChoices, choice, &SortChoice::text);
  return found == std::end(kSortChoices) ? sql : sql + found->order;
}

void KVI_UpdateInventory::LoadUpdateGrid() {
  const Hourglass busy(app_.desktop);
  const PaintingOff hidden(Spread1);
  app_.ItemSet = app_.CurrentDatabase.OpenRecordset(Query());
  const int count = app_.ItemSet.RecordCount();
  Spread1.SetMaxRows(count);
  if (count < 1) {
    ShowPosition();
    if (app_.screens.IsShown(app_.Get<Main>()))
      Inform("No items in the system.  Click on the '+' icon to add a new item.");
    return;
  }
  FillGrid();
  ShadeGridRows(Spread1, app_.UseColors);
  Spread1.SetReDraw(false);
  SetupSpreadsheet();
  if (Spread1.ActiveRow() < 1) GoToFirstCell(Spread1);
  ShowPosition();
  changed_ = false;
}

// A part that cannot be shown ends the walk. The rows behind it stay blank then, so that none of
// them shows another list's part.
void KVI_UpdateInventory::FillGrid() {
  Spread1.ClearText(Block::All());
  int row = 0;
  for (app_.ItemSet.MoveFirst(); !app_.ItemSet.Eof(); app_.ItemSet.MoveNext()) {
    const double below = app_.ItemSet.Number("qty_on_hand") - app_.ItemSet.Number("re_order");
    if (show_all.Value || below < 0) FillRow(++row, app_.ItemSet);
  }
  Spread1.SetMaxRows(row);
}

void KVI_UpdateInventory::FillRow(int row, const jet::Recordset& part) {
  int col = 0;
  for (const TextColumn& column : kTextColumns)
    Spread1.SetText(row, ++col, part.Text(column.field));
  if (SortCombo.Text() == kLineNumber)
    Spread1.SetText(row, kNumberColumn, part.Text("account") + "/" + part.Text("inv_id"));
  Spread1.SetText(row, kUnitColumn,
                  part.Text(Units() == ShownAs::Purchased ? "how_purchased" : "how_inv"));

  const PartLevel level{part.Number("qty_on_hand"), part.Number("cost_per"), part.Number("hi_qty")};
  if (tab_ == Tab::Purchase) {
    Spread1.SetText(row, kFirstNumberColumn, "0");
    Spread1.SetText(row, kFirstNumberColumn + 1, Format(ShownCost(level, Units()), "###0.00"));
    return;
  }
  const std::string quantity = Format(ShownQuantity(level, Units()), "##0.00");
  Spread1.SetText(row, kFirstNumberColumn, quantity);
  Spread1.SetText(row, kFirstNumberColumn + 1, quantity);
  Spread1.SetText(row, kDifferenceColumn, Format(0.0, "###0.0"));
  Spread1.SetText(row, kPercentColumn, Format(0.0, "###0.0"));
}

void KVI_UpdateInventory::ShowUnits() {
  Spread1.SetHeading(kUnitColumn,
                     Units() == ShownAs::Purchased ? "How Purchased" : "How Inventoried");
}

void KVI_UpdateInventory::ShowPosition() {
  StatusBar1.SetPanelText(1,
                          Str(Spread1.ActiveRow()) + " of " + Str(Spread1.MaxRows()) + " records");
}

// What was typed on the other tab is gone without a question.
void KVI_UpdateInventory::ShowTab(Tab tab) {
  if (tab == tab_) return;
  const PaintingOff hidden(Spread1);
  tab_ = tab;
  SetUpTab();
  LoadUpdateGrid();
}

void KVI_UpdateInventory::SetUpTab() {
  const bool counting = tab_ == Tab::Count;
  Spread1.SetHeading(7, counting ? "Theoretical Quantity on Hand" : "Quantity To Add");
  Spread1.SetHeading(8, counting ? "New Quantity on Hand" : "Cost Per");
  Spread1.SetHeading(kDifferenceColumn, counting ? "Variance Diff" : "");
  Spread1.SetHeading(kPercentColumn, counting ? "Variance Percent" : "");
  for (const int col : {kDifferenceColumn, kPercentColumn})
    Spread1.SetColWidth(col, counting ? kVarianceWidth : 0);
  SetupSpreadsheet();
}

void KVI_UpdateInventory::SetupSpreadsheet() {
  const bool counting = tab_ == Tab::Count;
  const Block numbers{1, kFirstNumberColumn, -1, -1};
  Spread1.SetLock(numbers, true);
  Spread1.SetAlign(numbers, CellAlign::Right);
  SetInputCells();
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
  const Block cells{1, tab_ == Tab::Count ? 8 : 7, -1, 8};
  Spread1.SetLock(cells, false);
  Spread1.SetBackColor(cells, kBrightCyan);
}

// Takes back no red of an earlier recalculation: a cell stays red until the next load or sort.
void KVI_UpdateInventory::RecalculateVariance() {
  const Hourglass busy(app_.desktop);
  const PaintingOff hidden(Spread1);
  for (int row = 1; row <= Spread1.MaxRows(); ++row) {
    const double counted = Val(Spread1.Text(row, 8));
    const CountVariance variance =
        VarianceOfCount(Val(Spread1.Text(row, 7)), counted, app_.settings.AcceptableVariance);
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
  ShadeGridRows(Spread1, app_.UseColors);
  Spread1.SetReDraw(false);
  for (int row = 1; row <= Spread1.MaxRows(); ++row) {
    Spread1.SetBackColor(Block::Cell(row, 7), kWhite);
    Spread1.SetBackColor(Block::Cell(row, 8), kBrightCyan);
    const bool differs = Val(Spread1.Text(row, kDifferenceColumn)) != 0;
    Spread1.SetBackColor(VarianceCells(row), differs ? kBrightRed : kWhite);
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

bool KVI_UpdateInventory::QueryUnload() {
  if (changed_ && AskYesNo("Changes have been made.  Save before exiting?")) {
    SaveUpdateGrid();
    changed_ = false;
  }
  // Comes also when the variances were printed already; a save has just taken them away.
  if (variancesFound_ && tab_ == Tab::Count &&
      AskYesNo("Variances must be printed before exiting.  Once you exit, any record of the actual "
               "variance is gone.  Print before exiting?"))
    PrintList();
  return true;
}

void KVI_UpdateInventory::Leave() {
  if (QueryUnload()) CloseScreen();
}

Layout KVI_UpdateInventory::Arrange() {
  return Column(
      {BannerLayout(), Actions({&save, &print_lab, &find_lab, &ei, &exit_lab}),
       Row({Column({Of(OptPurchased), Of(OptInventoried)}), Column({Of(show_all), Of(show_ro)}),
            Field("Sort by:", SortCombo, 1.5), Gap()}),
       Tabs(TabStrip1, {Row({Field("Acceptable variance %:", var_perc, 0.7),
                             Actions({&rv, &svd, &sva}), Gap()}),
                        Gap()}),
       Fill(Of(Spread1))});
}

}  // namespace kvi
