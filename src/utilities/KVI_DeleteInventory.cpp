#include "utilities/KVI_DeleteInventory.h"

#include <vector>

#include "base/Number.h"
#include "grids/SprdSubs.h"
#include "store/BackUp.h"
#include "utilities/BulkTasks.h"

namespace kvi {

KVI_DeleteInventory::KVI_DeleteInventory(Application& app)
    : KviScreen(app, "KVI_DeleteInventory", "Delete Inventory Items",
                "Inventory - Delete Inventory Items") {
  warning.ForeColor = kRed;
  dai.Click = [this] {
    mode_ = kAllItems;
    DeleteInventory();
  };
  diio.Click = [this] {
    mode_ = kInactiveItems;
    DeleteInventory();
  };
  exit_lab.Cancel = true;
  exit_lab.Click = [this] { Exit(); };
}

std::string KVI_DeleteInventory::PartsOf(Mode mode) const {
  return " FROM I_Master WHERE Pcenter = " + Str(app_.CurrentProfitCenter) +
         (mode == kInactiveItems ? " AND Ucase(Trim(Active)) <> 'YES' ;" : ";");
}

// Says whose parts they are, and how many, before anything is pressed.
void KVI_DeleteInventory::Activate() {
  const Hourglass busy(app_.desktop);
  const auto rowsOf = [this](const std::string& sql) {
    return app_.CurrentDatabase.OpenRecordset(sql);
  };
  const auto center =
      rowsOf("SELECT name FROM PCenter WHERE pcenter = " + Str(app_.CurrentProfitCenter));
  const int all = rowsOf("SELECT inv_id" + PartsOf(kAllItems)).RecordCount();
  const int inactive = rowsOf("SELECT inv_id" + PartsOf(kInactiveItems)).RecordCount();
  affected.Caption = (center.Eof() ? "No profit center" : center.Text("name")) + ": " +
                     CountOf(all, "item") + ", " + Str(inactive) + " of them inactive.";
}

void KVI_DeleteInventory::Exit() {
  mode_ = kLeave;
  DeleteInventory();
}

// Part group lines, purchases and locked periods keep what they tell of the removed parts; the
// removal of the inactive ones leaves the saved orders, too, even where they name these parts.
void KVI_DeleteInventory::DeleteInventory() {
  if (mode_ == kLeave) return CloseScreen();
  if (!AskToRemove("2nd WARNING!  THIS WILL REMOVE ITEMS!\n\nAre you sure you want to do this?",
                   "Utilities"))
    return;
  if (!BackUpBefore(app_, "deleting inventory")) return;
  std::vector<std::string> statements{"DELETE *" + PartsOf(mode_)};
  if (mode_ == kAllItems)
    for (const char* table : {"PSO_Master", "PSO_Detail"})
      statements.push_back(std::string("DELETE * FROM ") + table +
                           " WHERE Pcenter = " + Str(app_.CurrentProfitCenter) + ";");
  if (!RunTogether(app_, statements)) return;
  Inform("Inventory items have been removed.", "Utilities");
  CloseScreen();
}

Layout KVI_DeleteInventory::Arrange() {
  return Column(
      {BannerLayout(), Actions({&dai, &diio, &exit_lab}), Of(warning), Of(affected), Gap()});
}

}  // namespace kvi
