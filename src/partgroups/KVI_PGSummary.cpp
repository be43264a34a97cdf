#include "partgroups/KVI_PGSummary.h"

#include <algorithm>
#include <iterator>

#include "base/Flag.h"
#include "base/Format.h"
#include "base/Number.h"
#include "base/RunTimeError.h"
#include "frame/StrgSubs.h"
#include "frame/Wording.h"
#include "grids/ExportGridToSpreadsheet.h"
#include "grids/KVI_Find.h"
#include "grids/PaintingOff.h"
#include "grids/PrintScreenGrid.h"
#include "grids/SprdSubs.h"
#include "partgroups/KVI_PGDetail.h"
#include "partgroups/PartGroupRecord.h"
#include "partgroups/UpdatePartGroupCosts.h"
#include "security/CheckAccess.h"

namespace kvi {

namespace {

constexpr double kHeadingHeight = 600;  // twips
constexpr int kRowIsGone = 3167;
constexpr const char* kHeadings[] = {"Name", "Category", "Part Group #", "Cost ($)", "Notes"};

}  // namespace

KVI_PGSummary::KVI_PGSummary(Application& app)
    : KviScreen(app, "KVI_PGSummary", kPartGroups, "Inventory - " + kPartGroups) {
  Label2.Caption = "(Double-Click on a " + kPartGroupLower + " to view detail  information:)";
  HandleEvents();
}

void KVI_PGSummary::HandleEvents() {
  for (OptionButton* sort : {&sort_name, &sort_cate, &sort_rnum})
    sort->Click = [this] {
      if (!settingUp_) LoadPartGroupList();
    };
  new_lab.Click = [this] { NewGroup(); };
  remove.Click = [this] { RemoveGroups(); };
  duplicate.Click = [this] { DuplicateActive(); };
  refresh_lab.Click = [this] { LoadPartGroupList(); };
  find_lab.Click = [this] { FindGroup(); };
  // The list is not loaded again.
  Label3.Tip = "New costs show after a refresh";
  Label3.Click = [this] { UpdatePartGroupCosts(app_); };
  print_lab.Click = [this] { PrintList(); };
  exit_lab.Click = m_f_exit.Click = [this] { Exit(); };
  m_export.Click = [this] {
    ExportGridToSpreadsheet(Spread1, app_.SpreadsheetPath, app_.ProgramFolder, app_.desktop);
  };
  Spread1.DblClick = [this](int row, int) { OpenGroup(row); };
  Spread1.HeadingClick = [this](int col) {
    for (OptionButton* sort : {&sort_name, &sort_cate, &sort_rnum})
      if (col-- == kNameColumn) sort->Value = true;
  };
  Spread1.RowActions = {&duplicate, &remove, &find_lab, &print_lab};
  Spread1.KeptCols = {kNameColumn, kNumberColumn};
  Spread1.EmptyText = "No " + kPartGroupsLower + " yet. Press New.";
  Spread1.ActiveCellChanged = [this] { ShowPosition(); };
  Spread1.KeyPress = [this](int, int col, const std::string& key) {
    if (col < kCostColumn) GoToFirstLetter(Spread1, SortColumn(), key);
  };
}

void KVI_PGSummary::Prepare() {
  Spread1.SetMaxCols(static_cast<int>(std::size(kHeadings)));
  Spread1.SetRowHeight(0, kHeadingHeight);
  int col = 0;
  for (const char* heading : kHeadings) Spread1.SetHeading(++col, heading);
  Spread1.SetAlign(Block::Column(kCostColumn), CellAlign::Right);
  const Flag setting(settingUp_);
  sort_name.Value = true;
  loadNeeded_ = true;
}

void KVI_PGSummary::Activate() {
  if (app_.ReturnedFromFind) {
    app_.ReturnedFromFind = false;
    return;
  }
  const int row = std::max(Spread1.ActiveRow(), 1);
  if (loadNeeded_) {
    LoadColumnWidths(Spread1, *this, app_.CurrentDatabase);
    ClearGrid(Spread1);
    LoadPartGroupList();
    loadNeeded_ = false;
  }
  GoToRow(Spread1, row);
  ShowPosition();
}

std::string KVI_PGSummary::Query() const {
  const std::string groups =
      "SELECT * FROM R_Master where pcenter = " + Str(app_.CurrentProfitCenter);
  if (sort_cate.Value) return groups + " ORDER BY category, name";
  return groups + (sort_rnum.Value ? " ORDER BY rec_id, name" : " ORDER BY name");
}

void KVI_PGSummary::LoadPartGroupList() {
  // (Said once the grid paints again.)
  if (!FillList())
    Inform("No " + kPartGroupLower + " items in the system.  Click on the '+' icon to add a new " +
           kPartGroupLower + " item.");
}

bool KVI_PGSummary::FillList() {
  const Hourglass busy(app_.desktop);
  const PaintingOff hidden(Spread1);
  const jet::ReadTogether reads(app_.CurrentDatabase);
  app_.PartGroupSet = app_.CurrentDatabase.OpenRecordset(Query());
  jet::Recordset& groups = app_.PartGroupSet;
  ClearGrid(Spread1);
  Spread1.SetMaxRows(groups.RecordCount());
  LockGrid(Spread1);
  Spread1.SetKind(Block::All(), CellKind::Static);
  for (int row = 1; !groups.Eof(); groups.MoveNext(), ++row) {
    Spread1.SetText(row, kNameColumn, groups.Text("name"));
    Spread1.SetText(row, kCategoryColumn, groups.Text("Category"));
    Spread1.SetText(row, kNumberColumn, groups.Text("rec_id"));
    Spread1.SetText(row, kCostColumn, Format(groups["cost"], "####0.0000"));
    Spread1.SetText(row, kNotesColumn, groups.Text("notes"));
  }
  Spread1.MarkSorted(SortColumn());
  ShadeGridRows(Spread1, app_.UseColors);
  if (Spread1.ActiveRow() < 1) GoToFirstCell(Spread1);
  ShowPosition();
  return Spread1.MaxRows() > 0;
}

void KVI_PGSummary::ShowPosition() {
  ShowGridRow(Spread1, StatusBar1, {kNameColumn, kNumberColumn});
}

int KVI_PGSummary::SortColumn() const {
  return sort_cate.Value ? kCategoryColumn : sort_rnum.Value ? kNumberColumn : kNameColumn;
}

void KVI_PGSummary::StandOn(int row) {
  app_.PartGroupSet.MoveFirst();
  for (int before = 1; before < row; ++before) app_.PartGroupSet.MoveNext();
}

bool KVI_PGSummary::MayWrite() {
  if (CheckAccess(app_.AccessString, kPartGroupModule, kWriteAccess)) return true;
  SayReadOnly("Kestvar Inventory", "");
  return false;
}

void KVI_PGSummary::NewGroup() {
  if (MayWrite()) app_.Get<KVI_PGDetail>().OpenNew();
}

void KVI_PGSummary::OpenGroup(int row) {
  if (row < 1) return;
  Spread1.SetActiveCell(row, Spread1.ActiveCol());
  StandOn(row);
  app_.Get<KVI_PGDetail>().OpenGroup(Spread1.Text(row, kNumberColumn));
}

// From the bottom up, since a removed row shifts the positions behind it. The lines of the groups
// stay in their table. A group that another desk removed meanwhile is gone as wanted.
void KVI_PGSummary::RemoveGroups() {
  if (!MayWrite()) return;
  if (Spread1.ActiveRow() < 1) return;
  if (!AskToRemove("Are you sure you want to remove this " + kPartGroupLower + " item?",
                   kPartGroup + " - Remove"))
    return;
  const Hourglass busy(app_.desktop);
  const auto removeAt = [this](int row) {
    StandOn(row);
    try {
      app_.PartGroupSet.Delete();
    } catch (const RunTimeError& error) {
      if (error.Number != kRowIsGone) throw;
    }
  };
  std::vector<Block> blocks = Spread1.SelectedBlocks();
  if (blocks.empty()) blocks.push_back(Block::Cell(Spread1.ActiveRow(), kNameColumn));
  app_.CurrentDatabase.WriteAtOnce([&] {
    for (auto block = blocks.rbegin(); block != blocks.rend(); ++block)
      for (int row = block->row2; row >= block->row; --row) removeAt(row);
  });
  LoadPartGroupList();
}

// The name tells a duplicate here, while the number tells whether one stands already. The cost is
// the one that shows, with its four decimals.
void KVI_PGSummary::DuplicateActive() {
  if (!MayWrite()) return;
  const int row = Spread1.ActiveRow();
  if (row < 1) return;
  if (!AskYesNo("Are you sure you want to duplicate this " + kPartGroupLower + " item?",
                kPartGroup + " - Duplicate"))
    return;
  const Hourglass busy(app_.desktop);
  const auto cell = [&](int col) { return Spread1.Text(row, col); };
  StandOn(row);
  if (IsNamedDuplicate(cell(kNameColumn)))
    return Inform("You cannot duplicate a 'duplicate'.", "Duplicate");
  const PartGroupHeader original{cell(kNumberColumn), cell(kNameColumn), cell(kCategoryColumn),
                                 cell(kNotesColumn)};
  if (!DuplicateGroup(app_.CurrentDatabase, app_.PartGroupSet, original, Val(cell(kCostColumn))))
    return Inform("Duplicate already exists. New record NOT created.", "Duplicate");
  LoadPartGroupList();
  if (app_.CurrentProfitCenter != 0) Say("The copy is in the profit center of number 0.");
}

void KVI_PGSummary::FindGroup() {
  app_.Get<KVI_Find>().FindIn(
      {.caller = Name(), .grid = &Spread1, .hidden = &Spread1, .column = SortColumn()});
}

void KVI_PGSummary::PrintList() {
  if (AskToPrint()) PrintScreenGrid(app_, *this, Spread1);
}

void KVI_PGSummary::Unload() {
  SaveColumnWidths(Spread1, *this, app_.CurrentDatabase, app_.desktop);
}

Layout KVI_PGSummary::Arrange() {
  return Column({BannerLayout(),
                 Actions({&new_lab, &remove, &duplicate, &refresh_lab, &find_lab, &Label3,
                          &print_lab, &exit_lab}),
                 Row({Of(Label1), Of(sort_name), Of(sort_cate), Of(sort_rnum), Gap()}), Of(Label2),
                 Fill(Of(Spread1))});
}

}  // namespace kvi
