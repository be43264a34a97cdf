#include "ordering/KVI_OrderSystem.h"

#include <iterator>

#include "base/Flag.h"
#include "base/Format.h"
#include "base/Number.h"
#include "frame/Wording.h"
#include "grids/ExportGridToSpreadsheet.h"
#include "grids/ItemSorts.h"
#include "grids/PaintingOff.h"
#include "grids/PrintScreenGrid.h"
#include "grids/SprdSubs.h"
#include "ordering/ParSheet.h"
#include "stock/KVI_Invoice.h"
#include "store/DropDown.h"

namespace kvi {

namespace {

constexpr double kHeadingHeight = 600;  // twips
constexpr double kOrderWidth = 800;
constexpr const char* kHeadings[] = {
    "Name",          "Category",        "Location",        "Number",        "Description",
    "How Purchased", "Par Level",       "Re-Order Level",  "Current Level", "Suggested Order",
    "Cost Per",      "Qty. from Order", "Cost from Order", "On Order"};

// The keyboard goes to what acts on the grid as it stands: that asks for itself.
bool IsActionOrMenu(const Control* control) {
  return control != nullptr &&
         (control->Kind() == ControlKind::ActionLabel || control->Kind() == ControlKind::MenuItem);
}

}  // namespace

KVI_OrderSystem::KVI_OrderSystem(Application& app)
    : KviScreen(app, "KVI_OrderSystem", "Par Sheet Order Form",
                "Inventory - Par Sheet Order System") {
  ordertotal.Locked = true;
  ordertotal.RightAligned = true;
  HandleEvents();
  HandleGrid();
  HandleOptions();
}

void KVI_OrderSystem::HandleEvents() {
  TabStrip1.MayShow = [this](int tab) { return MayShowTab(tab); };
  TabStrip1.Click = [this] {
    if (!settingUp_) ShowTab();
  };
  VendorCombo.Click = [this] {
    if (settingUp_) return;
    app_.CurrentOrderVendor = VendorCombo.Text;
    ShowList();
  };
  SortCombo.Click = [this] {
    if (!settingUp_) ShowList();
  };
  ShowAboveZero.Click = [this] { ShowList(); };
  orders.Click = [this] {
    if (ShownTab() == Tab::Receive) OpenSavedOrder();
  };
  ut.Click = [this] { UpdateTotal(); };
  save.Click = [this] { save_changes(); };
  remove.Click = [this] {
    if (MayWrite()) Telling([this] { RemoveSavedOrder(); });
  };
  print_lab.Click = [this] { PrintScreenGrid(app_, *this, Spread1); };
  ei.Click = [this] { app_.screens.ShowModal(app_.Get<KVI_Invoice>()); };
  exit_lab.Click = m_f_exit.Click = [this] { Exit(); };
  m_export.Click = [this] {
    ExportGridToSpreadsheet(Spread1, app_.SpreadsheetPath, app_.ProgramFolder, app_.desktop);
  };
}

void KVI_OrderSystem::HandleGrid() {
  Spread1.CellEdited = [this](int, int) {
    changed_ = true;
    ShowPosition();
  };
  Spread1.ActiveCellChanged = [this] { ShowPosition(); };
  Spread1.HeadingClick = [this](int col) {
    AskToSaveTyped();
    ChooseSortOfColumn(SortCombo, col);
  };
  Spread1.KeptCols = {kNameColumn, kNumberColumn};
  Spread1.EntryCol = kQuantityColumn;
  Spread1.EmptyText = "No parts to order. Choose another vendor, or show all items.";
  Spread1.KeyPress = [this](int, int col, const std::string& key) {
    if (col < kParColumn && TakesFirstLetter(Spread1.Text(0, col)))
      GoToFirstLetter(Spread1, col, key);
  };
  Spread1.LostFocus = scan.Scan.LostFocus = [this] { LeaveGrid(); };
}

void KVI_OrderSystem::HandleOptions() {
  MB_RoundUp.Click = [this] {
    if (AskYesNo("This option will round all suggested reorder quantities \nto the next higher "
                 "integer. Continue?"))
      ChangeQuantities([this](int row) { return RoundedUp(Spread1.Text(row, kQuantityColumn)); });
  };
  MB_Adjust.Click = [this] { AdjustQuantities(); };
  m_zero.Click = [this] {
    if (AskYesNo("This option will make all suggested reorder quantities 0.\nContinue?"))
      ChangeQuantities([](int) { return std::string("0"); });
  };
  m_sub_oo.Click = [this] {
    if (AskYesNo(
            "This option will subtract the amount on order from the 'suggested order'.  This "
            "assumes that you should reduce your to-be-created order by the amount you are "
            "waiting for.  Note - any suggested orders less than 0 will be set to 0.\nContinue?"))
      ChangeQuantities([this](int row) {
        return LessOnOrder(Spread1.Text(row, kQuantityColumn), Spread1.Text(row, kOnOrderColumn));
      });
  };
}

void KVI_OrderSystem::Prepare() {
  Spread1.SetMaxCols(static_cast<int>(std::size(kHeadings)));
  Spread1.SetRowHeight(0, kHeadingHeight);
  int col = 0;
  for (const char* heading : kHeadings) Spread1.SetHeading(++col, heading);
  Spread1.SetAlign({1, kParColumn, -1, -1}, CellAlign::Right);
  const Flag setting(settingUp_);
  OfferItemSorts(SortCombo);
  TabStrip1.Tab = 0;
  scan.Clear();
}

void KVI_OrderSystem::Activate() {
  constexpr int kRowsAtFirst = 1500;
  ClearGrid(Spread1);
  Spread1.SetMaxRows(kRowsAtFirst);
  FillVendors();
  LoadColumnWidths(Spread1, *this, app_.CurrentDatabase);
  {
    const Flag setting(settingUp_);
    SortCombo.SetListIndex(0);
  }
  SetUpTab();
  ShowList();
}

void KVI_OrderSystem::FillVendors() {
  const Flag setting(settingUp_);
  FillDropDown(app_.CurrentDatabase, VendorCombo, "Vendor_info");
  VendorCombo.AddItem(kAllVendors);
  // A vendor that is gone filters nothing.
  if (VendorCombo.IndexOf(app_.CurrentOrderVendor) < 0) app_.CurrentOrderVendor = kAllVendors;
  VendorCombo.Text = app_.CurrentOrderVendor;
}

bool KVI_OrderSystem::MayShowTab(int tab) {
  if (tab == 0 || !OrderNames(app_.CurrentDatabase, app_.CurrentProfitCenter).empty()) return true;
  Inform("There are no orders to receive yet.  You will need to create one first!",
         "Par Sheet Order");
  return false;
}

void KVI_OrderSystem::ShowTab() {
  SetUpTab();
  if (ShownTab() == Tab::Place)
    load_data();
  else
    FillOrders();
}

// The widths come behind the kept ones: a hidden column is kept as a narrow one.
void KVI_OrderSystem::SetUpTab() {
  const bool placing = ShownTab() == Tab::Place;
  ShowAboveZero.Caption =
      placing ? "Only Show Items Where Suggested Order > 0" : "Only Show Items From Order";
  Spread1.SetHeading(kQuantityColumn, placing ? "Suggested Order" : "Quantity Received");
  Spread1.SetColWidth(kOrderedColumn, placing ? 0 : kOrderWidth);
  Spread1.SetColWidth(kOrderedCostColumn, placing ? 0 : kOrderWidth);
  Spread1.SetColWidth(kOnOrderColumn, placing ? kOrderWidth : 0);
}

void KVI_OrderSystem::FillOrders() {
  orders.Clear();
  for (const std::string& name : OrderNames(app_.CurrentDatabase, app_.CurrentProfitCenter))
    orders.AddItem(name);
  if (orders.ListCount() == 0) return EndReceiving();
  orders.SetListIndex(0);
}

void KVI_OrderSystem::EndReceiving() {
  Inform("No more orders exist.  Create a new order, or Exit.", "Par Sheet Order");
  TabStrip1.Tab = 0;
}

void KVI_OrderSystem::ShowList() {
  if (ShownTab() == Tab::Place)
    load_data();
  else
    OpenSavedOrder();
}

void KVI_OrderSystem::ShowPosition() {
  ShowGridRow(Spread1, StatusBar1, {kNameColumn, kNumberColumn, kDescriptionColumn}, "line");
}

// Between scans nothing is left: a box would swallow the next one.
void KVI_OrderSystem::LeaveGrid() {
  const Control* next = FocusGoesTo();
  if (next != &Spread1 && next != &scan.Scan && !IsActionOrMenu(next)) AskToSaveTyped();
}

void KVI_OrderSystem::AskToSaveTyped() {
  if (!changed_) return;
  if (AskYesNo("Changes have been made to the spreadsheet.  Do you wish to save now?\nContinue?"))
    save_changes();
  changed_ = false;
}

// The grid does not count as changed by an option.
void KVI_OrderSystem::ChangeQuantities(const std::function<std::string(int row)>& quantity) {
  const PaintingOff hidden(Spread1);
  for (int row = 1; row <= Spread1.MaxRows(); ++row)
    Spread1.SetText(row, kQuantityColumn, quantity(row));
}

void KVI_OrderSystem::AdjustQuantities() {
  const auto answer = app_.desktop.InputBox(
      "Enter the percentage amount to adjust suggested reorder quantities by (examples: +5 "
      "increases quantities by five percent, -10 decreases quantities by ten percent and 0 causes "
      "no change) :",
      "Kestvar Inventory");
  const double percent = Val(answer.value_or(""));
  if (percent == 0) return;
  ChangeQuantities([&](int row) { return Adjusted(Spread1.Text(row, kQuantityColumn), percent); });
}

// A quantity that is no number leaves the total as it was.
void KVI_OrderSystem::UpdateTotal() {
  double total = 0;
  for (int row = 1; row <= Spread1.MaxRows(); ++row)
    total += LineTotal(Spread1.Text(row, kQuantityColumn), Spread1.Text(row, kCostColumn));
  if (ShownTab() == Tab::Place) PaintOverPar();
  ordertotal.Text = Format(total, "###,##0.00");
}

void KVI_OrderSystem::PaintOverPar() {
  const PaintingOff hidden(Spread1);
  for (int row = 1; row <= Spread1.MaxRows(); ++row)
    if (GoesOverPar(Spread1.Text(row, kParColumn), Spread1.Text(row, kLevelColumn),
                    Spread1.Text(row, kQuantityColumn)))
      Spread1.SetForeColor(Block::Cell(row, kParColumn), kBrightMagenta);
}

void KVI_OrderSystem::Exit() {
  if (changed_ && AskYesNo("Changes have been made.  Save before exiting?")) save_changes();
  changed_ = false;
  SaveColumnWidths(Spread1, *this, app_.CurrentDatabase, app_.desktop);
  CloseScreen();
}

// A long list takes its memory along.
void KVI_OrderSystem::EndVisit() {
  scan.Forget();
  Spread1.BlankRows();
}

Layout KVI_OrderSystem::Arrange() {
  return Column(
      {BannerLayout(), Actions({&save, &ut, &remove, &print_lab, &ei, &exit_lab}),
       Tabs(TabStrip1, {Row({Field("F&ilter by:", VendorCombo, 2.5), Gap()}),
                        Row({Field("Saved or&ders:", orders, 3.5), Gap()})}),
       Row({Field("Sor&t by:", SortCombo, 1.5), Of(ShowAboveZero), Field("S&can:", scan.Scan, 1.6),
            Gap(), Field("Total for order:", ordertotal, 1.2)}),
       Fill(Of(Spread1))});
}

}  // namespace kvi
