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

// Nothing of what a step itself writes is an edit, however its load ends.
struct EndsUnchanged {
  std::function<void()> end;
  ~EndsUnchanged() { end(); }
};

}  // namespace

void ItemDetailScreen::FillLists(const LoadStatements& run) {
  for (const DropList& list : DropLists())
    run([&] { FillDropDown(app_.CurrentDatabase, *list.combo, list.table); });
}

// The row whose trimmed key is the number in i_num, all of it in memory before anything is shown:
// a lock that comes up half way would leave two parts on the screen. Closed when it cannot be read.
jet::Recordset ItemDetailScreen::ReadRow(const std::string& trimmedKey, const LoadStatements& run) {
  jet::Recordset row;
  run([&] {
    jet::Recordset found = app_.CurrentDatabase.OpenRecordset(
        "SELECT * FROM I_Master WHERE " + trimmedKey + " = '" + Trim(i_num.Text()) + "';");
    FetchWhole(found);
    row = std::move(found);
  });
  return row;
}

void ItemDetailScreen::LoadItemOnActivate() {
  const LoadStatements run(app_.desktop);
  const jet::ReadTogether reads(app_.CurrentDatabase);
  const jet::Recordset row = ReadRow("Trim(Inv_ID)", run);
  if (row.IsOpen()) FillLists(run);
  if (!ShowRow(row, run)) return;
  for (int n = 1; n <= kVendors; ++n) ApplyVendorAvailability(*this, n);
}

bool ItemDetailScreen::LoadInvItem_2() {
  const LoadStatements run(app_.desktop);
  return ShowRow(ReadRow("Trim(Inv_ID)", run), run);
}

bool ItemDetailScreen::ShowRow(const jet::Recordset& row, const LoadStatements& run) {
  i_num.Locked = !CaptionSaysNew();
  btnCID.Enabled = !CaptionSaysNew();
  if (!row.IsOpen() || row.Eof()) {
    RecipeList.Clear();
    // A new part has no row yet, and one without a number is none that stands elsewhere.
    if (!CaptionSaysNew() && !Trim(i_num.Text()).empty()) ShowNothing();
    return false;
  }
  ShowTexts(*this, row, run);
  ShowNumbers(*this, row, run);
  if (differences_.readsCorporateFlag) ShowCorporateFlag(*this, row, run);
  ShowPrices(*this, row, run);
  ShowName();
  run([&] { ShowPartGroups(); });
  run([&] { Recalc(); });
  SetDirty(false);
  TakeAsLoaded();
  return true;
}

// The lighter reload of a step. It touches neither prices, vendor choice and caption nor the
// number's lock.
void ItemDetailScreen::LoadItemRecord() {
  const LoadStatements run(app_.desktop);
  const jet::ReadTogether reads(app_.CurrentDatabase);
  CenterForm();
  const jet::Recordset row = ReadRow("lTrim(rtrim(Inv_ID))", run);
  if (!row.IsOpen() || row.Eof()) return ShowNothing();
  FillLists(run);
  ShowTexts(*this, row, run);
  ShowPlainNumbers(*this, row, run);
  ShowCorporateFlag(*this, row, run);
  run([&] { Recalc(); });
  run([&] { ShowPartGroups(); });
  TakeAsLoaded();
}

void ItemDetailScreen::TakeAsLoaded() {
  itemLoaded_ = true;
  missing_ = false;
}

// The part is gone, or another desk's lock hides it. Blank fields stand under its number then, and
// no save takes them: the part before may not be written over this one.
void ItemDetailScreen::ShowNothing() {
  itemLoaded_ = false;
  BlankFields();
  for (TextBox* box : {&v_id1, &v_id2, &v_id3, &hi_cost_per, &hi_qty, &hu_qty}) box->Text = "";
  for (int n = 1; n <= kVendors; ++n) VendorOf(n).VendorOpt.Value = false;
  BlankFormulas();
  RecipeList.Clear();
  SetDirty(false);
  missing_ = true;
}

void ItemDetailScreen::ShowPartGroups() {
  RecipeList.Clear();
  ListPartGroupsOfItem(app_.CurrentDatabase, RecipeList, i_num.Text);
}

void ItemDetailScreen::StepItem(int direction) {
  std::string saved;
  if (itemDirty_) {
    SaveItem();
    if (!itemDirty_) saved = SavedText();
    SetDirty(false);
  }
  Spread& grid = app_.Get<KVI_InventorySummary>().Spread1;
  const int row = grid.ActiveRow();
  if (direction > 0 && row >= grid.MaxRows()) return Inform("Already at end of recordset");
  if (direction < 0 && row <= 1) return Inform(differences_.atFirstPart);
  const EndsUnchanged loading{[this] { SetDirty(false); }};
  i_num.Text = grid.Text(row + direction, KVI_InventorySummary::kNumberColumn);
  GoToRow(grid, row + direction);
  LoadItemRecord();
  ShowName();
  SetDirty(false);
  if (!saved.empty()) Say(saved);
}

void ItemDetailScreen::BlankFields() {
  for (TextBox* box : {&iname, &desc, &qty_on_hand, &hp_cost_per, &re_order, &BarCodeScanId, &notes,
                       &Price1, &Price2, &Price3, &optimal, &valuation, &hu_cost_per})
    box->Text = "";
  for (const DropList& list : DropLists()) list.combo->Text = "";
  ShowPicture(*this, "");
}

void ItemDetailScreen::BlankItem() {
  i_num.Text = "";
  BlankFields();
  hu_qty.Text = "1";
  ChooseForNewPart();
  missing_ = false;
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
  const LoadStatements run(app_.desktop);
  for (const DropList& list : DropLists())
    if (list.combo != &how_purchased)
      run([&] { FillDropDown(app_.CurrentDatabase, *list.combo, list.table); });
  BlankItem();
  hi_qty.Text = "1";
}

void ItemDetailScreen::AddItem() {
  if (!CheckAccess(app_.AccessString, kInventoryModule, kWriteAccess))
    return SayReadOnly("KV Inventory", "");
  if (itemDirty_) {
    if (!AskOkCancel("Changes have been made.  Save before creating new order?", "Detail")) return;
    SaveItem();
  }
  newItem_ = true;
  ClearItemFields();
  SetDirty(false);
  RecipeList.Clear();
  i_num.Locked = false;
  btnCID.Enabled = false;
}

}  // namespace kvi
