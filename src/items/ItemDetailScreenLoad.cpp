#include "base/Text.h"
#include "frame/GENERAL.h"
#include "grids/SprdSubs.h"
#include "items/ItemCosts.h"
#include "items/ItemDetailScreen.h"
#include "items/ItemPicture.h"
#include "items/ItemRecord.h"
#include "items/KVI_InventorySummary.h"
#include "security/CheckAccess.h"
#include "store/DropDown.h"

// The detail screen's loads: on activation, by a step along the summary's grid, and of nothing for
// a new part.
namespace kvi {

namespace {

// Nothing of what a step itself writes is an edit, also where the part is gone meanwhile or its
// load fails: the next step would save the part before under this number.
struct EndsUnchanged {
  bool& dirty;
  ~EndsUnchanged() { dirty = false; }
};

}  // namespace

void ItemDetailScreen::FillLists(const RunStatement& run) {
  for (const DropList& list : DropLists())
    run([&] { FillDropDown(app_.CurrentDatabase, *list.combo, list.table); });
}

void ItemDetailScreen::LoadItemOnActivate() {
  FillLists(LoadStatements(app_.desktop));
  if (!LoadInvItem_2()) return;
  for (int n = 1; n <= kVendors; ++n) ApplyVendorAvailability(*this, n);
}

bool ItemDetailScreen::LoadInvItem_2() {
  i_num.Locked = !CaptionSaysNew();
  btnCID.Enabled = !CaptionSaysNew();
  const LoadStatements run(app_.desktop);
  jet::Recordset row;
  run([&] {
    row = app_.CurrentDatabase.OpenRecordset("SELECT * FROM I_Master WHERE Trim(Inv_ID) = '" +
                                             Trim(i_num.Text()) + "';");
  });
  if (!row.IsOpen() || row.Eof()) {
    RecipeList.Clear();
    return false;
  }
  ShowTexts(*this, row, run);
  ShowNumbers(*this, row, run);
  if (differences_.readsCorporateFlag) ShowCorporateFlag(*this, row, run);
  ShowPrices(*this, row, run);
  ShowName();
  run([&] { ShowPartGroups(); });
  run([&] { Recalc(); });
  itemDirty_ = false;
  itemLoaded_ = true;
  return true;
}

// The lighter reload of a step. It neither touches prices, vendor choice, caption or the number's
// lock, nor passes over a failure.
void ItemDetailScreen::LoadItemRecord() {
  const RunStatement run = [](const std::function<void()>& statement) { statement(); };
  CenterForm();
  FillLists(run);
  const jet::Recordset row = app_.CurrentDatabase.OpenRecordset(
      "SELECT * FROM I_Master WHERE lTrim(rtrim(Inv_ID)) = '" + Trim(i_num.Text()) + "';");
  if (row.Eof()) return;
  ShowTexts(*this, row, run);
  ShowPlainNumbers(*this, row, run);
  ShowCorporateFlag(*this, row, run);
  Recalc();
  ShowPartGroups();
}

void ItemDetailScreen::ShowPartGroups() {
  RecipeList.Clear();
  ListPartGroupsOfItem(app_.CurrentDatabase, RecipeList, i_num.Text);
}

void ItemDetailScreen::StepItem(int direction) {
  if (itemDirty_) {
    SaveItem();
    itemDirty_ = false;
  }
  Spread& grid = app_.Get<KVI_InventorySummary>().Spread1;
  const int row = grid.ActiveRow();
  if (direction > 0 && row >= grid.MaxRows()) return Inform("Already at end of recordset");
  if (direction < 0 && row <= 1) return Inform(differences_.atFirstPart);
  const EndsUnchanged loading{itemDirty_};
  i_num.Text = grid.Text(row + direction, KVI_InventorySummary::kNumberColumn);
  GoToRow(grid, row + direction);
  LoadItemRecord();
  ShowName();
}

void ItemDetailScreen::BlankItem() {
  for (TextBox* box : {&iname, &i_num, &desc, &qty_on_hand, &hp_cost_per, &re_order, &BarCodeScanId,
                       &notes, &Price1, &Price2, &Price3, &optimal, &valuation, &hu_cost_per})
    box->Text = "";
  for (const DropList& list : DropLists()) list.combo->Text = "";
  hu_qty.Text = "1";
  ShowPicture(*this, "");
  // Behind the name, whose change writes the caption too.
  SetCaption("Detail - Add New Item");
}

// hi_qty keeps the value of the part that was shown before.
void ItemDetailScreen::ClearItemFields() {
  BlankItem();
  for (TextBox* box : {&v_id1, &v_id2, &v_id3, &hi_cost_per}) box->Text = "";
}

// The vendors' numbers and hi_cost_per keep what they held.
void ItemDetailScreen::PrepareNewItem() {
  for (const DropList& list : DropLists())
    if (list.combo != &how_purchased) FillDropDown(app_.CurrentDatabase, *list.combo, list.table);
  BlankItem();
  hi_qty.Text = "1";
}

void ItemDetailScreen::AddItem() {
  if (!CheckAccess(app_.AccessString, kInventoryModule, kWriteAccess))
    return Inform("Current security clearance is READ ONLY.", "KV Inventory");
  if (itemDirty_) {
    if (!AskOkCancel("Changes have been made.  Save before creating new order?", "Detail")) return;
    SaveItem();
  }
  newItem_ = true;
  ClearItemFields();
  itemDirty_ = false;
  RecipeList.Clear();
  i_num.Locked = false;
  btnCID.Enabled = false;
}

}  // namespace kvi
