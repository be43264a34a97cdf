#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"
#include "grids/PaintingOff.h"
#include "grids/SprdSubs.h"
#include "platform/Progress.h"
#include "store/BackUp.h"
#include "usage/KVI_UsageAnalysis.h"

// What the grid shows: parts, levels, purchases and usage.
namespace kvi {

namespace {

constexpr double kPeriodWidth = 1200;  // twips
constexpr const char* kLevelMask = "######0.00";
constexpr const char* kUsageMask = "#####0.00";
constexpr const char* kTotalCaption = "Inv. cost for per.:";

int ColumnOf(std::size_t period) {
  return KVI_UsageAnalysis::kFirstPeriodColumn +
         KVI_UsageAnalysis::kColumnsOfPeriod * static_cast<int>(period);
}

}  // namespace

std::string KVI_UsageAnalysis::Query() const {
  const char* order = sort_cate.Value   ? " ORDER BY category, name"
                      : sort_inum.Value ? " ORDER BY inv_id, name"
                                        : " ORDER BY name";
  return "SELECT * FROM I_Master WHERE active = 'YES' AND pcenter = " +
         Str(app_.CurrentProfitCenter) + order;
}

void KVI_UsageAnalysis::LoadUsageGrid() {
  history_ = {};
  {
    const PaintingOff hidden(Spread1);
    FillParts();
  }
  if (Spread1.MaxRows() == 0)
    return Inform(
        "No inventory items in the system.  Click on the '+' icon to add a new inventory item.",
        "Inventory");
  ReadHistory();
  const std::size_t periods = history_.Periods().size();
  if (periods == 0) return;
  {
    const PaintingOff hidden(Spread1);
    Spread1.SetMaxCols(kColumnsOfPeriod * static_cast<int>(periods) + kLevelColumn);
    const Block figures{1, kCostColumn, -1, -1};
    Spread1.SetAlign(figures, CellAlign::Right);
    Spread1.SetKind(figures, CellKind::Static);
    for (std::size_t period = 0; period < periods; ++period) HeadPeriod(period);
    FillRows();
    // Nothing is known of purchases and usage behind the last period.
    Spread1.SetMaxCols(Spread1.MaxCols() - (kColumnsOfPeriod - 1));
    if (history_.HasLevels(0)) FillTotals();
  }
  if (!history_.HasLevels(0)) RejectPeriods();
}

// Row by row: a column of a long list is spread over all of the memory.
void KVI_UsageAnalysis::FillRows() {
  const std::size_t parts = PartCount();
  const auto progress = app_.desktop.NewProgress(Caption(), false);
  progress->Begin("Levels and usage", static_cast<int>(parts));
  for (std::size_t part = 0; part < parts; ++part) {
    FillRow(part);
    progress->Done(static_cast<int>(part));
  }
}

// A part without a row of the period shows 0, as if it had been empty. Usage is what was there at
// the start and came, less what was there at the end; a negative one is shown as it is.
void KVI_UsageAnalysis::FillRow(std::size_t part) {
  static const Value none(0);
  const int row = static_cast<int>(part) + 1;
  double start = 0;
  for (std::size_t period = 0; period < history_.Periods().size(); ++period) {
    const int col = ColumnOf(period);
    const PeriodHistory::Level* level = history_.LevelAt(part, period);
    std::string amount = Format(level == nullptr ? none : level->amount, kLevelMask);
    const double end = Val(amount);
    if (period > 0) {
      const double bought = history_.Purchased(part, period - 1);
      Spread1.SetText(row, col - 2, Format(bought, kLevelMask));
      Spread1.SetText(row, col - 1, Format((bought + start) - end, kUsageMask));
    }
    Spread1.SetText(row, col, std::move(amount));
    start = end;
  }
}

void KVI_UsageAnalysis::FillParts() {
  jet::Recordset parts = app_.CurrentDatabase.OpenRecordset(Query());
  Spread1.SetMaxRows(parts.RecordCount());
  LockGrid(Spread1);
  Spread1.SetKind(Block::All(), CellKind::Static);
  for (const int col : {kCostColumn, kLevelColumn})
    Spread1.SetAlign(Block::Column(col), CellAlign::Right);
  const auto progress = ReadingList(Spread1, app_.desktop, parts.RecordCount());
  for (int row = 1; !parts.Eof(); parts.MoveNext(), ++row) {
    progress->Done(row);
    Spread1.SetText(row, kNameColumn, parts.Text("name"));
    Spread1.SetText(row, kNameColumn + 1, parts.Text("Category"));
    Spread1.SetText(row, kNumberColumn, Trim(parts.Text("inv_id")));
    Spread1.SetText(row, kNumberColumn + 1, parts.Text("how_purchased"));
    Spread1.SetText(row, kCostColumn, Format(parts["cost_per"], "###0.00"));
    Spread1.SetText(row, kLevelColumn, Format(parts.Number("qty_on_hand"), "###0.00"));
  }
  Spread1.MarkSorted(sort_cate.Value ? kNameColumn + 1 : sort_inum.Value ? kNumberColumn : 1);
}

// The rows that hold parts: all but the totals row.
std::size_t KVI_UsageAnalysis::PartCount() const {
  int rows = Spread1.MaxRows();
  while (rows > 0 && Trim(Spread1.Text(rows, kNumberColumn)).empty()) --rows;
  return static_cast<std::size_t>(rows);
}

void KVI_UsageAnalysis::ReadHistory() {
  std::vector<std::string> numbers(PartCount());
  for (std::size_t part = 0; part < numbers.size(); ++part)
    numbers[part] = Trim(Spread1.Text(static_cast<int>(part) + 1, kNumberColumn));
  std::vector<Date> periods;
  jet::Recordset headers = app_.CurrentDatabase.OpenRecordset(
      "SELECT * FROM HI_Header WHERE pcenter = " + Str(app_.CurrentProfitCenter) +
      " ORDER BY F_Date");
  for (; !headers.Eof(); headers.MoveNext())
    if (headers["F_Date"].IsDate()) periods.push_back(headers["F_Date"].AsDate());
  history_ = PeriodHistory(std::move(periods), numbers);
  if (history_.Periods().empty()) return;
  const auto progress = app_.desktop.NewProgress(Caption(), false);
  ReadLevels(*progress);
  ReadPurchases(*progress);
}

// Each table is walked once, and what it holds sorted into parts and periods in memory: a query for
// each cell would take minutes on a large stockroom. Rows of no profit center count in money alone;
// those of other ones were purged.
void KVI_UsageAnalysis::ReadLevels(Progress& progress) {
  for (const std::string& center : {"= " + Str(app_.CurrentProfitCenter), std::string("Is Null")}) {
    jet::Recordset levels = app_.CurrentDatabase.OpenRecordset(
        "SELECT F_Date, Inv_ID, Amount, Price FROM [Historical Inventory] WHERE pcenter " + center +
        " ORDER BY F_Date");
    progress.Begin("Locked levels", levels.RecordCount());
    for (int done = 1; !levels.Eof(); levels.MoveNext(), ++done) {
      history_.AddLevel(levels["Inv_ID"], levels["F_Date"], levels["Amount"],
                        levels.Number("Price"));
      progress.Done(done);
    }
  }
}

void KVI_UsageAnalysis::ReadPurchases(Progress& progress) {
  jet::Recordset purchases = app_.CurrentDatabase.OpenRecordset(
      "SELECT inv_id, P_Date, p_qty, Price, pcenter FROM Hist_Purchases");
  progress.Begin("Purchases", purchases.RecordCount());
  for (int done = 1; !purchases.Eof(); purchases.MoveNext(), ++done) {
    const Value& center = purchases["pcenter"];
    const bool ours = !center.IsNull() && center.Number() == app_.CurrentProfitCenter;
    history_.AddPurchase(purchases["inv_id"], purchases["P_Date"], purchases.Number("p_qty"),
                         purchases.Number("Price"), ours);
    progress.Done(done);
  }
}

void KVI_UsageAnalysis::HeadPeriod(std::size_t period) {
  const int col = ColumnOf(period);
  const bool last = period == history_.PairCount();
  const std::string from = Str(history_.Periods()[period]);
  const std::string span = last ? "" : " from " + from + "-" + Str(history_.Periods()[period + 1]);
  Spread1.SetHeading(col, "Inventory as of " + from);
  Spread1.SetHeading(col + 1, "Purchases" + span);
  Spread1.SetHeading(col + 2, (last ? "Period Usage" : "Per. Usage") + span);
  for (int next = col; next < col + kColumnsOfPeriod; ++next)
    Spread1.SetColWidth(next, kPeriodWidth);
  if (!last)
    Spread1.SetForeColor({1, col, -1, col + 2}, period % 2 == 0 ? kBrightBlue : kBrightRed);
}

void KVI_UsageAnalysis::FillTotals() {
  const int totals = Spread1.MaxRows() + 1;
  const std::size_t periods = history_.Periods().size();
  std::vector<double> sums(periods);
  for (int row = 1; row < totals; ++row) {
    const double cost = Val(Spread1.Text(row, kCostColumn));
    for (std::size_t period = 0; period < periods; ++period)
      sums[period] += cost * Val(Spread1.Text(row, ColumnOf(period)));
  }
  Spread1.SetMaxRows(totals);
  for (std::size_t period = 0; period < periods; ++period) {
    const int col = ColumnOf(period);
    Spread1.SetText(totals, col, Format(sums[period], "#####0.00"));
    Spread1.SetAlign(Block::Cell(totals, col), CellAlign::Right);
    Spread1.SetText(totals, col - 1, kTotalCaption);
  }
}

// None of the parts shown was there when the first period was locked: these are the periods of
// other data, as of the sample that the program came with.
void KVI_UsageAnalysis::RejectPeriods() {
  Inform(
      "Your data does not match the sample data.  Remove any previously 'frozen' periods and start "
      "fresh with your data.",
      "Period Usage");
  history_ = {};
  if (BackUpBefore(app_, "removing all locked periods")) DeletePeriods("");
}

}  // namespace kvi
