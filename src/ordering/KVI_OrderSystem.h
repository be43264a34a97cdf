#pragma once

#include <functional>
#include <string>
#include <vector>

#include "frame/KviScreen.h"
#include "grids/ScanField.h"
#include "grids/WorkbookItem.h"
#include "ordering/SavedOrders.h"
#include "platform/Spread.h"

namespace kvi {

// Par-sheet orders, on two tabs over one grid: what to buy up to par, saved as an order under a
// name, and the receipt of a saved order, which books levels, costs and purchases and takes the
// order away. Everything is in the purchased unit, and the texts of the grid are what is saved.
class KVI_OrderSystem : public KviScreen {
 public:
  // Columns of the grid. The entry columns are the tenth, and on a receipt the eleventh too.
  static constexpr int kNameColumn = 1;
  static constexpr int kNumberColumn = 4;
  static constexpr int kDescriptionColumn = 5;
  static constexpr int kParColumn = 7;
  static constexpr int kReOrderColumn = 8;
  static constexpr int kLevelColumn = 9;
  static constexpr int kQuantityColumn = 10;
  static constexpr int kCostColumn = 11;
  static constexpr int kOrderedColumn = 12;
  static constexpr int kOrderedCostColumn = 13;
  static constexpr int kOnOrderColumn = 14;

  explicit KVI_OrderSystem(Application& app);

  void Activate() override;
  void EndVisit() override;
  void Exit() override;
  bool TakesWholeDisplay() const override { return true; }
  Layout Arrange() override;

  // Fills the grid for the tab that shows. Puts its own query into ItemSet, in which a receipt
  // finds its rows. What was typed is gone.
  void load_data();
  // Loads the grid with the order chosen in `orders`.
  void OpenSavedOrder();
  // Saves an order, or books the receipt of one.
  void save_changes();
  // Deletes the order chosen in `orders`, without a question.
  void RemoveSavedOrder();

  TabStrip TabStrip1{*this, "TabStrip1", {"Place an order", "Receive an order"}};
  ComboBox VendorCombo{*this, "VendorCombo", ComboBox::Style::ListOnly};
  ComboBox orders{*this, "orders", ComboBox::Style::ListOnly};
  ComboBox SortCombo{*this, "SortCombo", ComboBox::Style::ListOnly};
  CheckBox ShowAboveZero{*this, "ShowAboveZero", ""};
  TextBox ordertotal{*this, "ordertotal"};
  Spread Spread1{*this, "Spread1"};
  ActionLabel ut{*this, "ut", "&Update total"};
  ActionLabel save{*this, "save", "&Save"};
  ActionLabel remove{*this, "remove", "&Remove"};
  ActionLabel print_lab{*this, "print_lab", "&Print"};
  ActionLabel ei{*this, "ei", "&Enter invoices"};
  ActionLabel exit_lab{*this, "exit_lab", "E&xit"};
  ScanField scan{app_, *this, Spread1, kNumberColumn};
  StatusBar StatusBar1{*this, "StatusBar1", 2};
  Menu m_file{*this, "m_file", "&File"};
  MenuItem m_export{m_file, "m_export", "Export to spreadsheet"};
  WorkbookItem m_workbook{m_file, app_, *this, Spread1};
  MenuItem m_f_exit{m_file, "m_f_exit", "E&xit this screen"};
  Menu MB_Options{*this, "MB_Options", "&Options"};
  MenuItem MB_RoundUp{MB_Options, "MB_RoundUp", "&Round Up Reorder Quantities"};
  MenuItem MB_Adjust{MB_Options, "MB_Adjust", "&Adjust All Reorder Quantities"};
  MenuItem m_zero{MB_Options, "m_zero", "Make order quantities all zero"};
  MenuItem m_sub_oo{MB_Options, "m_sub_oo", "Subtract 'on order' from 'suggested order'"};

 protected:
  void Prepare() override;

 private:
  enum class Tab { Place, Receive };

  void HandleEvents();
  void HandleGrid();
  void HandleOptions();
  Tab ShownTab() const { return TabStrip1.Tab == 0 ? Tab::Place : Tab::Receive; }
  bool MayShowTab(int tab);
  void ShowTab();
  void SetUpTab();
  void FillVendors();
  void FillOrders();
  // No order is left to receive: says so and goes to the first tab.
  void EndReceiving();
  // Shows the list afresh: on a receipt with the order that is chosen.
  void ShowList();
  // Asks about typed cells when the keyboard goes on to other fields than the scanner's.
  void LeaveGrid();
  void AskToSaveTyped();
  void ShowPosition();
  void ChangeQuantities(const std::function<std::string(int row)>& quantity);
  void AdjustQuantities();
  void UpdateTotal();
  void PaintOverPar();

  // The loading half, in KVI_OrderSystemLoad.cpp.
  std::string Query() const;
  void Load(const std::function<void()>& load);
  void ForgetVendor();
  // With the lines of an order beside the parts, or without.
  void FillGrid(const OrderLines* order);
  bool OpenItems();
  std::vector<int> FillRows(const OrderLines* order);
  bool IsListed(const jet::Recordset& part, const OrderLine* line) const;
  void FillRow(int row, const jet::Recordset& part);
  void FillOnOrder(int row, const double* quantity);
  void FillOrdered(int row, const OrderLine* line);
  void LockColumns();
  void PaintOrderInputColumns();
  int LastEntryColumn() const { return ShownTab() == Tab::Place ? kQuantityColumn : kCostColumn; }

  // The saving half, in KVI_OrderSystemSave.cpp.
  bool MayWrite();
  void Telling(const std::function<void()>& work);
  void SaveTemplate();
  std::vector<OrderLine> OrderedLines() const;
  void ReceiveOrder();
  bool ClaimOpened();
  bool BookOrder(bool& partChanged);
  bool ReceiveRow(int row);
  std::string TransactionName() const;

  jet::Recordset opened_;  // stands on the order whose lines are shown
  bool changed_ = false;   // a cell was edited since the last load
};

}  // namespace kvi
