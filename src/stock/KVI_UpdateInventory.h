#pragma once

#include "frame/KviScreen.h"
#include "grids/ScanField.h"
#include "grids/WorkbookItem.h"
#include "platform/Spread.h"
#include "stock/StockBooking.h"

namespace kvi {

// Books many parts at once, on two tabs over one grid: a physical count with its variance against
// the levels held, and purchases with their costs. The grid's texts are what a save reads, so
// values pass through their masks. A variance stands in the grid alone; no table keeps it.
class KVI_UpdateInventory : public KviScreen {
 public:
  // Columns of the grid; what a row is counted or priced by is typed into the entry column.
  static constexpr int kNameColumn = 1;
  static constexpr int kNumberColumn = 4;
  static constexpr int kDescriptionColumn = 5;
  static constexpr int kUnitColumn = 6;
  static constexpr int kQuantityColumn = 7;
  static constexpr int kEntryColumn = 8;
  static constexpr int kDifferenceColumn = 9;
  static constexpr int kPercentColumn = 10;

  explicit KVI_UpdateInventory(Application& app);

  void Activate() override;
  void EndVisit() override;
  void Exit() override;
  bool TakesWholeDisplay() const override { return true; }
  Layout Arrange() override;

  // Fills the grid from the parts of the profit center. Puts its own query into ItemSet, in which
  // the save finds its rows. What was typed is gone.
  void LoadUpdateGrid();
  // Saves what the tab that shows is for, row by row; what was written before a failure stays.
  void SaveUpdateGrid();
  // Opens the tab's input cells, locks the others, and forgets that variances were found.
  void SetupSpreadsheet();
  void SortByVariance(bool ascending);

  TabStrip TabStrip1{
      *this, "TabStrip1", {"Update inventory levels", "Enter purchase/update prices"}};
  TextBox var_perc{*this, "var_perc"};
  ActionLabel rv{*this, "rv", "&Recalc var."};
  ActionLabel svd{*this, "svd", "Sort var. &desc."};
  ActionLabel sva{*this, "sva", "Sort var. &asc."};
  OptionButton OptPurchased{*this, "OptPurchased", "Show qty. as 'How Purchased'", "units"};
  OptionButton OptInventoried{*this, "OptInventoried", "Show qty. as 'How Inventoried'", "units"};
  OptionButton show_ro{*this, "show_ro", "Show below reorder point", "rows"};
  OptionButton show_all{*this, "show_all", "Show all items", "rows"};
  ComboBox SortCombo{*this, "SortCombo", ComboBox::Style::ListOnly};
  Spread Spread1{*this, "Spread1"};
  ActionLabel save{*this, "save", "&Save"};
  ActionLabel print_lab{*this, "print_lab", "&Print"};
  ActionLabel find_lab{*this, "find_lab", "F&ind"};
  ActionLabel ei{*this, "ei", "&Enter invoices"};
  ActionLabel exit_lab{*this, "exit_lab", "E&xit"};
  ScanField scan{app_, *this, Spread1, kNumberColumn};
  StatusBar StatusBar1{*this, "StatusBar1", 2};
  Menu m_file{*this, "m_file", "&File"};
  MenuItem m_export{m_file, "m_export", "Export to spreadsheet"};
  WorkbookItem m_workbook{m_file, app_, *this, Spread1};
  MenuItem m_f_exit{m_file, "m_f_exit", "E&xit this screen"};

 protected:
  void Prepare() override;

 private:
  enum class Tab { Count, Purchase };

  void HandleEvents();
  void ShowUnits();
  void ShowPosition();
  std::string Typed() const { return tab_ == Tab::Count ? "count" : "line"; }
  void ShowTab(Tab tab);
  void SetUpTab();
  void SetInputCells();
  void RecalculateVariance();
  void FindItem();
  void PrintList();

  // The loading half, in KVI_UpdateInventoryLoad.cpp.
  void SetUpColumns();
  std::string Query() const;
  // False when there are no parts.
  bool LoadRows();
  void FillGrid();
  bool CanShow(const jet::Recordset& part) const;
  void FillRow(int row, const jet::Recordset& part);

  // The saving half, in KVI_UpdateInventorySave.cpp.
  bool SaveRow(int row);
  // What the box of a save that stopped tells of the rows before.
  std::string AlreadySaved(int rows) const;
  Booking BookingOf(int row, const PartLevel& part) const;
  void BookReceipt(const std::string& number, const Booking& booking);
  void FinishPurchases(bool partChanged);

  ShownAs Units() const { return OptPurchased.Value ? ShownAs::Purchased : ShownAs::Inventoried; }

  Tab tab_ = Tab::Count;
  bool changed_ = false;         // a cell was edited since the last load or save
  bool variancesFound_ = false;  // a recalculation met the acceptable variance
};

}  // namespace kvi
