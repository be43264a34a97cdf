#include "usage/KVI_UsageAnalysis.h"

#include <algorithm>
#include <iterator>

#include "base/Flag.h"
#include "base/Format.h"
#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "grids/ExportGridToSpreadsheet.h"
#include "grids/PaintingOff.h"
#include "grids/PrintScreenGrid.h"
#include "grids/SprdSubs.h"
#include "security/CheckAccess.h"
#include "store/SaveRecord.h"
#include "usage/HistoryIntegrity.h"
#include "usage/KVI_UsageChart.h"

namespace kvi {

namespace {

constexpr double kHeadingHeight = 750;  // twips
struct FixedColumn {
  const char* heading;
  double width;  // twips
};
constexpr FixedColumn kFixedColumns[] = {
    {"Description", 1200},        {"Category", 900},         {"Inv. #", 700}, {"How Purch.", 700},
    {"Cost Per How Purch.", 700}, {"Cur. Qty. On Hand", 700}};
constexpr int kFixedCount = static_cast<int>(std::size(kFixedColumns));
constexpr int kRowsAtFirst = 500;

// Shows the label of the wait where the grid stood, for the length of a load.
class BehindWaitLabel {
 public:
  BehindWaitLabel(Spread& grid, Label& label) : grid_(grid), label_(label) {
    grid_.Visible = false;
    label_.Visible = true;
  }
  ~BehindWaitLabel() {
    label_.Visible = false;
    grid_.Visible = true;
  }
  BehindWaitLabel(const BehindWaitLabel&) = delete;
  BehindWaitLabel& operator=(const BehindWaitLabel&) = delete;

 private:
  Spread& grid_;
  Label& label_;
};

}  // namespace

KVI_UsageAnalysis::KVI_UsageAnalysis(Application& app)
    : KviScreen(app, "KVI_UsageAnalysis", "Usage Analysis", "Inventory - Usage Analysis") {
  WaitLabel.Visible = false;
  cmdSummary.Tip = "Summarize current column";
  hfc.SpokenName = "Cost of the periods";
  HandleEvents();
}

// (The click on cmdSummary does nothing.)
void KVI_UsageAnalysis::HandleEvents() {
  for (OptionButton* sort : {&sort_name, &sort_inum, &sort_cate})
    sort->Click = [this] {
      if (!settingUp_) Reload();
    };
  save_lab.Click = [this] { LockPeriod(); };
  remove.Click = [this] { RemovePeriod(); };
  chart_lab.Click = [this] { ShowChart(); };
  print_lab.Click = [this] { PrintList(); };
  exit_lab.Click = m_f_exit.Click = [this] { Exit(); };
  m_export.Click = [this] {
    ExportGridToSpreadsheet(Spread1, app_.SpreadsheetPath, app_.ProgramFolder, app_.desktop);
  };
  Spread1.ActiveCellChanged = [this] { ShowPosition(); };
  Spread1.KeptCols = {kNameColumn, kNumberColumn};
  Spread1.RowActions = {&chart_lab};
}

void KVI_UsageAnalysis::Prepare() {
  Spread1.SetMaxCols(kFixedCount);
  Spread1.SetRowHeight(0, kHeadingHeight);
  for (int col = 1; col <= kFixedCount; ++col) {
    Spread1.SetHeading(col, kFixedColumns[col - 1].heading);
    Spread1.SetColWidth(col, kFixedColumns[col - 1].width);
  }
  const Flag setting(settingUp_);
  sort_name.Value = true;
}

void KVI_UsageAnalysis::Activate() {
  Reload();
}

void KVI_UsageAnalysis::Reload() {
  const Hourglass busy(app_.desktop);
  {
    const BehindWaitLabel wait(Spread1, WaitLabel);
    ClearGrid(Spread1);
    Spread1.SetMaxRows(kRowsAtFirst);
    Spread1.SetMaxCols(kFixedCount);
    EnsureIntegrity();
    if (app_.ItemsAtHand) {
      LoadUsageGrid();
      calc_hfc();
    }
    ShadeGridRows(Spread1, app_.UseColors);
  }
  if (Spread1.ActiveRow() < 1) GoToFirstCell(Spread1);
  ShowPosition();
}

void KVI_UsageAnalysis::ShowPosition() {
  ShowGridRow(Spread1, StatusBar1, {kNameColumn, kNumberColumn});
}

void KVI_UsageAnalysis::EnsureIntegrity() {
  jet::Database& database = app_.CurrentDatabase;
  try {
    const auto progress = app_.desktop.NewProgress(Caption(), false);
    PurgeForeignHistory(database, *progress);
    DeleteEmptyPeriods(database, app_.CurrentProfitCenter);
    // Matches nothing: no comparison with Null is true.
    database.Execute("DELETE * FROM [Historical Inventory] WHERE Inv_ID = Null;");
    RepairZeroPrices(database, *progress);
  } catch (const RunTimeError& error) {
    Inform(Str(error.Number) + " " + error.Description);
  }
  integralAt_ = database.ChangeCount();
}

// A failure is told, and the routine goes on with its next step.
void KVI_UsageAnalysis::SurrogateHFC() {
  const LoadStatements run(app_.desktop);
  run([&] {
    if (integralAt_ == app_.CurrentDatabase.ChangeCount()) return;
    EnsureIntegrity();
    ReadHistory();
  });
  hfc.Clear();
  if (Spread1.MaxRows() == 0) return;
  const Hourglass busy(app_.desktop);
  const PaintingOff hidden(Spread1);
  const auto parts = static_cast<std::size_t>(Spread1.MaxRows() - 1);
  int col = kLevelColumn;
  for (std::size_t pair = 0; pair < history_.PairCount(); ++pair) {
    double cost = 0;
    for (std::size_t part = 0; part < parts; ++part) cost += history_.Cost(part, pair);
    hfc.AddItem(DayText(pair) + "-" + DayText(pair + 1) +
                " - Inventory Cost: " + Format(cost, "$########0.00"));
    col += kColumnsOfPeriod;
    Spread1.SetText(Spread1.MaxRows(), col, Format(cost, "########0.00"));
  }
  hfc.SetListIndex(hfc.ListCount() - 1);
}

std::string KVI_UsageAnalysis::DayText(std::size_t period) const {
  return Format(history_.Periods()[period], "MM/DD/YYYY");
}

bool KVI_UsageAnalysis::MayWrite() {
  if (CheckAccess(app_.AccessString, kUsageModule, kWriteAccess)) return true;
  SayReadOnly("P.B.I.");
  return false;
}

bool KVI_UsageAnalysis::FillChart() {
  const int row = Spread1.ActiveRow();
  if (row < 1 || history_.Periods().empty()) return false;
  // The totals row is no part.
  const auto part = std::min(static_cast<std::size_t>(row), PartCount()) - 1;
  app_.Get<KVI_UsageChart>().SetCharts(UsageOf(part), CostliestParts());
  return true;
}

void KVI_UsageAnalysis::ShowChart() {
  if (!FillChart()) return Inform("There is no locked period to show.");
  app_.screens.ShowModal(app_.Get<KVI_UsageChart>());
}

// As the grid shows it.
UsageSeries KVI_UsageAnalysis::UsageOf(std::size_t part) const {
  const int row = static_cast<int>(part) + 1;
  UsageSeries usage{.part = Spread1.Text(row, kNameColumn)};
  int col = kFirstPeriodColumn;
  for (const Date& period : history_.Periods()) {
    usage.periods.push_back(Str(period));
    usage.levels.push_back(Val(Spread1.Text(row, col)));
    usage.used.push_back(col == kFirstPeriodColumn ? 0 : Val(Spread1.Text(row, col - 1)));
    col += kColumnsOfPeriod;
  }
  return usage;
}

std::vector<PartCost> KVI_UsageAnalysis::CostliestParts() const {
  constexpr std::size_t kShown = 10;
  std::vector<PartCost> costs;
  if (history_.PairCount() == 0) return costs;
  for (std::size_t part = 0, parts = PartCount(); part < parts; ++part)
    costs.push_back({Spread1.Text(static_cast<int>(part) + 1, kNameColumn),
                     history_.Cost(part, history_.PairCount() - 1)});
  const auto shown = costs.begin() + static_cast<std::ptrdiff_t>(std::min(kShown, costs.size()));
  std::partial_sort(costs.begin(), shown, costs.end(),
                    [](const PartCost& a, const PartCost& b) { return a.cost > b.cost; });
  costs.erase(shown, costs.end());
  return costs;
}

void KVI_UsageAnalysis::PrintList() {
  if (!AskToPrint("This is a draft/screen print only. ")) return;
  const Hourglass busy(app_.desktop);
  PrintGridUnder(app_.desktop, Spread1, {Caption(), Str(app_.clock.Now().WithoutTime())});
}

// A long list takes its memory along.
void KVI_UsageAnalysis::EndVisit() {
  history_ = {};
  Spread1.BlankRows();
}

Layout KVI_UsageAnalysis::Arrange() {
  return Column({BannerLayout(), Actions({&save_lab, &remove, &chart_lab, &print_lab, &exit_lab}),
                 Row({Of(sort_name), Of(sort_inum), Of(sort_cate), Gap(),
                      Field("Cost of the periods:", hfc, 4.2), Of(cmdSummary)}),
                 Of(WaitLabel), Fill(Of(Spread1))});
}

}  // namespace kvi
