#include "base/Format.h"
#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "grids/SprdSubs.h"
#include "store/BackUp.h"
#include "store/SaveRecord.h"
#include "usage/KVI_UsageAnalysis.h"

// A period locked and removed.
namespace kvi {

namespace {

constexpr const char* kLockTitle = "Lock Inventory";
constexpr const char* kRemoveTitle = "Historical Inventory";
constexpr std::size_t kDateInHeading = 17;  // behind "Inventory as of "
constexpr double kNewColumnWidth = 600;     // twips

std::string DayCondition(const Date& day) {
  return " AND F_Date = #" + Str(day) + "#";
}

}  // namespace

// A column of today is looked for on the screen, and then in the table.
bool KVI_UsageAnalysis::IsLockedToday() const {
  const Date today = app_.clock.Now().WithoutTime();
  for (int col = kFirstPeriodColumn; col <= Spread1.MaxCols(); col += kColumnsOfPeriod) {
    if (CDate(Mid(Spread1.Text(0, col), kDateInHeading)) != today) continue;
    if (!app_.CurrentDatabase
             .OpenRecordset("SELECT * FROM HI_Header WHERE F_Date  = #" + Str(today) +
                            "# AND pcenter = " + Str(app_.CurrentProfitCenter) + ";")
             .Eof())
      return true;
  }
  return false;
}

void KVI_UsageAnalysis::LockPeriod() {
  if (!MayWrite()) return;
  if (IsLockedToday())
    return Inform(
        "You cannot 'lock' inventory for same profit center more than once for the same date.",
        kLockTitle);
  const bool wanted = AskYesNo(
      "Are you sure you want to 'lock' the current inventory levels on-hand to the current "
      "date?\n\nThis should be done after each physical count is taken!",
      kLockTitle);
  std::size_t locked = 0;
  if (wanted) {
    const Hourglass busy(app_.desktop);
    const Date today = app_.clock.Now().WithoutTime();
    const std::vector<Locked> rows = ShowLock(today);
    const LoadStatements run(app_.desktop);
    run([&] {
      if (WriteUnderLocks(app_.desktop, app_.CurrentDatabase, [&] { WriteLock(today, rows); }))
        locked = rows.size();
    });
  }
  // Whether anything was locked or not.
  Reload();
  if (locked > 0) Say(CountOf(static_cast<int>(locked), "level") + " locked");
}

// The levels and costs as the grid shows them, in a column of their own. Costs have the two
// decimals of their column; the totals row has no number and is no part.
std::vector<KVI_UsageAnalysis::Locked> KVI_UsageAnalysis::ShowLock(const Date& today) {
  Spread1.SetMaxCols(Spread1.MaxCols() + 1);
  const int col = Spread1.MaxCols();
  Spread1.SetColWidth(col, kNewColumnWidth);
  Spread1.SetAlign(Block::Column(col), CellAlign::Right);
  Spread1.SetHeading(col, Str(today));
  std::vector<Locked> rows;
  for (int row = 1; row <= Spread1.MaxRows(); ++row) {
    const std::string number = Trim(Spread1.Text(row, kNumberColumn));
    if (number.empty()) continue;
    const std::string level = Format(Val(Spread1.Text(row, kLevelColumn)), "########0.00");
    Spread1.SetText(row, col, level);
    rows.push_back(
        {number, Val(level), Val(Format(Val(Spread1.Text(row, kCostColumn)), "#####0.0000"))});
  }
  return rows;
}

// All or nothing: another desk takes a header without rows away when it opens its screen.
void KVI_UsageAnalysis::WriteLock(const Date& today, const std::vector<Locked>& rows) {
  jet::Database& database = app_.CurrentDatabase;
  const int center = app_.CurrentProfitCenter;
  const std::string ofToday = " WHERE pcenter = " + Str(center) + DayCondition(today);
  database.WriteAtOnce([&] {
    jet::Recordset headers = database.OpenRecordset("SELECT * FROM HI_Header" + ofToday);
    headers.AddNew();
    headers.Set("F_Date", today);
    headers.Set("pcenter", center);
    headers.Update();
    jet::Recordset levels =
        database.OpenRecordset("SELECT * FROM [Historical Inventory]" + ofToday);
    for (const Locked& row : rows) {
      levels.AddNew();
      levels.Set("F_Date", today);
      levels.Set("Amount", row.level);
      levels.Set("Inv_ID", row.number);
      levels.Set("pcenter", center);
      levels.Set("Price", row.price);
      levels.Update();
    }
  });
}

std::optional<Date> KVI_UsageAnalysis::ActivePeriod() const {
  const std::string heading = Spread1.Text(0, Spread1.ActiveCol());
  if (Spread1.ActiveCol() < kFirstPeriodColumn || Left(heading, 4) != "Inve") return std::nullopt;
  return CDate(Mid(heading, kDateInHeading));
}

void KVI_UsageAnalysis::RemovePeriod() {
  if (!MayWrite()) return;
  const auto period = ActivePeriod();
  if (!period) return Inform("You must be on a column labeled 'Inventory as of'.", kRemoveTitle);
  if (!AskToRemove("Are you sure you want to remove the current column?", kRemoveTitle)) return;
  if (!BackUpBefore(app_, "removing a locked period")) return;
  if (!DeletePeriods(DayCondition(*period))) return;
  Reload();
  Inform("Historical Inventory has been removed for the date: " + Str(*period), kRemoveTitle);
}

bool KVI_UsageAnalysis::DeletePeriods(const std::string& condition) {
  jet::Database& database = app_.CurrentDatabase;
  const std::string ofCenter = " WHERE pcenter = " + Str(app_.CurrentProfitCenter) + condition;
  return WriteUnderLocks(app_.desktop, database, [&] {
    database.WriteAtOnce([&] {
      database.Execute("DELETE * FROM HI_Header" + ofCenter + ";");
      database.Execute("DELETE * FROM [Historical Inventory]" + ofCenter + ";");
    });
  });
}

}  // namespace kvi
