#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "frame/KviScreen.h"
#include "grids/WorkbookItem.h"
#include "platform/Spread.h"
#include "usage/KVI_UsageChart.h"
#include "usage/PeriodHistory.h"

namespace kvi {

class Progress;

// The levels of all locked periods of the current profit center, what was bought between each two
// and what was used, a row a part, and a totals row in money. Here a period is locked or removed.
// What a lock stores is what the grid shows. Quantities are in how-purchased units.
class KVI_UsageAnalysis : public KviScreen {
 public:
  // Columns of the grid; from kFirstPeriodColumn on three belong to a period: its levels, and the
  // purchases and the usage up to the next one.
  static constexpr int kNameColumn = 1;
  static constexpr int kNumberColumn = 3;
  static constexpr int kCostColumn = 5;
  static constexpr int kLevelColumn = 6;
  static constexpr int kFirstPeriodColumn = 7;
  static constexpr int kColumnsOfPeriod = 3;

  explicit KVI_UsageAnalysis(Application& app);

  void Activate() override;
  void EndVisit() override;
  bool TakesWholeDisplay() const override { return true; }
  Layout Arrange() override;

  // Fills hfc and the totals of the usage columns.
  void calc_hfc() { SurrogateHFC(); }
  void SurrogateHFC();
  // Mends what drifts apart between parts, periods and purchases. Silent about what it deletes; a
  // failure costs one box, and the grid loads all the same.
  void EnsureIntegrity();
  // Stores the levels and costs that the grid shows under today's date.
  void LockPeriod();
  // Takes the period of the active column away.
  void RemovePeriod();
  // Fills the charts for the part of the active row; false where there is nothing to show.
  bool FillChart();

  OptionButton sort_name{*this, "sort_name", "Sort by item name", "sort"};
  OptionButton sort_inum{*this, "sort_inum", "Sort by part #", "sort"};
  OptionButton sort_cate{*this, "sort_cate", "Sort by category", "sort"};
  ComboBox hfc{*this, "hfc", ComboBox::Style::ListOnly};
  Button cmdSummary{*this, "cmdSummary", "Summary"};
  Label WaitLabel{*this, "WaitLabel", "Loading..... Please wait......."};
  Spread Spread1{*this, "Spread1"};
  ActionLabel save_lab{*this, "save_lab", "&Lock period"};
  ActionLabel remove{*this, "remove", "&Remove"};
  ActionLabel chart_lab{*this, "chart_lab", "&Chart"};
  ActionLabel print_lab{*this, "print_lab", "&Print"};
  ActionLabel exit_lab{*this, "exit_lab", "E&xit"};
  StatusBar StatusBar1{*this, "StatusBar1", 2};
  Menu m_file{*this, "m_file", "&File"};
  MenuItem m_export{m_file, "m_export", "&Export to spreadsheet"};
  WorkbookItem m_workbook{m_file, app_, *this, Spread1};
  MenuItem m_f_exit{m_file, "m_f_exit", "E&xit this screen"};

 protected:
  void Prepare() override;

 private:
  void HandleEvents();
  // Loads everything anew; the grid, its label and the pointer come back however that ends.
  void Reload();
  void ShowPosition();
  bool MayWrite();
  void ShowChart();
  void PrintList();

  UsageSeries UsageOf(std::size_t part) const;
  std::vector<PartCost> CostliestParts() const;
  std::string DayText(std::size_t period) const;

  // The loading half, in KVI_UsageAnalysisLoad.cpp.
  std::string Query() const;
  void LoadUsageGrid();
  void FillParts();
  std::size_t PartCount() const;
  void ReadHistory();
  void ReadLevels(Progress& progress);
  void ReadPurchases(Progress& progress);
  void FillRows();
  void FillRow(std::size_t part);
  void HeadPeriod(std::size_t period);
  void FillTotals();
  void RejectPeriods();

  // Locking and removing, in KVI_UsageAnalysisLock.cpp.
  struct Locked {
    std::string number;
    double level, price;  // how-purchased units
  };
  bool IsLockedToday() const;
  std::vector<Locked> ShowLock(const Date& today);
  void WriteLock(const Date& today, const std::vector<Locked>& rows);
  // The heading's date of the active column; nothing where it is no column of levels.
  std::optional<Date> ActivePeriod() const;
  // Of the profit center; false where a lock lasted and the user gave up.
  bool DeletePeriods(const std::string& condition);

  PeriodHistory history_;
  std::uint64_t integralAt_ = 0;  // the file's count of changes behind the last EnsureIntegrity
};

}  // namespace kvi
