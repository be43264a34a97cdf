#include "utilities/KVI_DeleteInventory.h"

#include <vector>

#include "base/Number.h"
#include "store/BackUp.h"
#include "utilities/BulkTasks.h"

namespace kvi {

KVI_DeleteInventory::KVI_DeleteInventory(Application& app)
    : KviScreen(app, "KVI_DeleteInventory", "Delete Inventory Items",
                "Inventory - Delete Inventory Items") {
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
  const std::string number = Str(app_.CurrentProfitCenter);
  std::vector<std::string> statements;
  if (mode_ == kAllItems)
    for (const char* table : {"I_Master", "PSO_Master", "PSO_Detail"})
      statements.push_back(std::string("DELETE * FROM ") + table + " WHERE Pcenter = " + number +
                           ";");
  else
    statements.push_back("DELETE * FROM I_Master WHERE Pcenter = " + number +
                         " AND Ucase(Trim(Active)) <> 'YES' ;");
  if (!RunTogether(app_, statements)) return;
  Inform("Inventory items have been removed.", "Utilities");
  CloseScreen();
}

Layout KVI_DeleteInventory::Arrange() {
  return Column({BannerLayout(), Actions({&dai, &diio, &exit_lab}), Of(warning), Gap()});
}

}  // namespace kvi
