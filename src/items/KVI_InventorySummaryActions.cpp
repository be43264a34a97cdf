#include <algorithm>

#include "base/Number.h"
#include "base/Text.h"
#include "frame/StrgSubs.h"
#include "grids/SprdSubs.h"
#include "items/DuplicateItem.h"
#include "items/KVI_InventoryDetail.h"
#include "items/KVI_InventoryDetail1Screen.h"
#include "items/KVI_InventorySummary.h"
#include "labels/KVI_Labels.h"
#include "security/CheckAccess.h"
#include "store/RepairItemDefaults.h"
#include "store/SaveRecord.h"

// What the summary does with a part: open it, add one, duplicate it, remove it.
namespace kvi {

ItemDetailScreen& KVI_InventorySummary::DetailScreen() {
  if (app_.settings.UseOldStyleInventoryDetail != 0) return app_.Get<KVI_InventoryDetail1Screen>();
  return app_.Get<KVI_InventoryDetail>();
}

void KVI_InventorySummary::OpenItem(int row) {
  if (row < 1) return;
  app_.CurrentCategory = CatCombo.Text;
  // The detail screen steps from the active row.
  Spread1.SetActiveCell(row, Spread1.ActiveCol());
  DetailScreen().OpenPart(Spread1.Text(row, kNumberColumn));
}

bool KVI_InventorySummary::MayWrite() {
  if (CheckAccess(app_.AccessString, kInventoryModule, kWriteAccess)) return true;
  SayReadOnly("KV Inventory", "");
  return false;
}

// The tabbed layout is made ready even where the single page is shown: that one comes up with its
// own last content, and its own add button makes a new part on it.
void KVI_InventorySummary::NewItem() {
  if (!MayWrite()) return;
  {
    const Hourglass busy(app_.desktop);
    app_.Get<KVI_InventoryDetail>().PrepareNewItem();
  }
  app_.screens.ShowModal(DetailScreen());
  if (AutoRefresh.Value) LoadItemGrid();
  GoToPart(Trim(DetailScreen().i_num.Text()));
}

// The list stands on the part that was just added; one that was not saved is not in it.
void KVI_InventorySummary::GoToPart(const std::string& number) {
  for (int row = 1; !number.empty() && row <= Spread1.MaxRows(); ++row)
    if (Trim(Spread1.Text(row, kNumberColumn)) == number) return GoToRow(Spread1, row);
}

void KVI_InventorySummary::PrintLabels() {
  std::vector<Block> blocks = Spread1.SelectedBlocks();
  if (blocks.empty()) blocks.push_back({1, 1, Spread1.MaxRows(), 1});
  std::vector<std::string> numbers;
  for (const Block& block : blocks)
    for (int row = std::max(1, block.row); row <= block.row2; ++row)
      numbers.push_back(Spread1.Text(row, kNumberColumn));
  if (!numbers.empty()) app_.Get<KVI_Labels>().ShowLabels(numbers);
}

// The name tells a duplicate here, while the number tells whether one stands already.
void KVI_InventorySummary::DuplicateActive() {
  const int row = Spread1.ActiveRow();
  if (row < 1) return;
  if (!AskYesNo("Are you sure you want to duplicate this item?", "Maintenance - Duplicate")) return;
  {
    const Hourglass busy(app_.desktop);
    if (IsNamedDuplicate(Spread1.Text(row, kNameColumn)))
      return Inform("You cannot duplicate a 'duplicate'.", "Duplicate");
    if (!DuplicateItem(app_.CurrentDatabase, Spread1.Text(row, kNumberColumn)))
      return Inform("Duplicate already exists. New record NOT created.", "Duplicate");
  }
  GoToFirstCell(Spread1);
  LoadItemGrid();
}

void KVI_InventorySummary::RemoveActive() {
  if (!MayWrite()) return;
  const int row = Spread1.ActiveRow();
  if (row < 1) return Inform("Cannot remove. No records were selected.");
  // Which one it is stands below while the question does.
  ShowPosition();
  if (!AskToRemove("Are you sure you want to remove this item?", "- Remove")) return;
  if (!RemoveItem(Spread1.Text(row, kNumberColumn))) return;
  ReopenItemSet();
  if (AutoRefresh.Value) LoadItemGrid();
  app_.PartGroupCostsStale = true;
  GoToRow(Spread1, std::min(row, Spread1.MaxRows()));
}

// Purchases, open orders and locked periods of the part stay. The part goes with its lines or not
// at all; a failure that is no lock is the event guard's.
bool KVI_InventorySummary::RemoveItem(const std::string& number) {
  jet::Database& database = app_.CurrentDatabase;
  return WriteUnderLocks(app_.desktop, database, [&] {
    database.WriteAtOnce([&] {
      for (const char* table : {"I_Master", "Inv_Recipe"})
        database.Execute(std::string("DELETE * FROM ") + table + " WHERE Trim(Inv_ID) = '" +
                         number + "';");
    });
  });
}

void KVI_InventorySummary::ReopenItemSet() {
  app_.ItemSet = app_.CurrentDatabase.OpenRecordset(
      "SELECT * FROM I_Master where pcenter = " + Str(app_.CurrentProfitCenter) + " ORDER BY name");
  if (app_.ItemSet.Eof()) EnsureBaseRecord(app_.CurrentDatabase, app_.ItemSet);
}

}  // namespace kvi
