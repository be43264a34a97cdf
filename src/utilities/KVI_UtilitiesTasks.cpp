#include "base/Number.h"
#include "grids/SprdSubs.h"
#include "partgroups/UpdatePartGroupCosts.h"
#include "store/BackUp.h"
#include "store/OpenInventoryDatabase.h"
#include "store/RepairItemDefaults.h"
#include "store/SaveRecord.h"
#include "utilities/BulkTasks.h"
#include "utilities/DailyTextFile.h"
#include "utilities/FullAccess.h"
#include "utilities/KVI_DeleteInventory.h"
#include "utilities/KVI_EmployeeSetup.h"
#include "utilities/KVI_ImportPBI.h"
#include "utilities/KVI_ManageDropLIsts.h"
#include "utilities/KVI_Utilities.h"
#include "valuation/ItemValuation.h"

namespace kvi {

namespace {

constexpr const char* kTitle = "Utilities";
constexpr const char* kGoOn = "\n\nAre you sure you want to continue?";

}  // namespace

void KVI_Utilities::HandleTasks() {
  Command2.Click = [this] { app_.screens.ShowModal(app_.Get<KVI_ImportPBI>()); };
  Command5.Click = [this] { app_.screens.ShowModal(app_.Get<KVI_EmployeeSetup>()); };
  Command1.Click = [this] { app_.screens.ShowModal(app_.Get<KVI_ManageDropLIsts>()); };
  Command3.Click = [this] { AskToSwitch("'active'", {"active", "YES"}); };
  Command4.Click = [this] { AskToSwitch("'NOT-active'", {"active", "NO"}); };
  Command6.Click = [this] {
    AskToSwitch("'Corporate Inventory Item'", {"CorpInventoryItem", true});
  };
  Command7.Click = [this] {
    AskToSwitch("'NON-Corporate Inventory Item'", {"CorpInventoryItem", false});
  };
  cmdUpdateAllValuations.Click = [this] { AskToRevalue(); };
  cmdUpdateRecipeCosts.Click = [this] { UpdatePartGroupCosts(app_); };
  cmdUpdateRecipeItems.Click = [this] { AskToUpdateItems(); };
  cmdDeleteAllRecipes.Click = [this] { AskToRemovePartGroups(); };
  cmdDeleteAllItems.Click = [this] { AskToRemoveItems(); };
  ZeroBtn.Click = [this] { AskToZero(); };
  cmdColWidth.Click = [this] { AskToResetWidths(); };
  remove_purchases.Click = [this] { AskToRemovePurchases(); };
  create_file.Click = [this] { createFile(app_); };
}

// Leaving the combo has made its position the number, and a roll-up or another screen may have left
// ItemSet on other parts. What is worked on is what stands in the combo.
void KVI_Utilities::WorkOnTheOneShown() {
  const int shown = pcenter.ListIndex();
  if (shown >= 0 && app_.profitCenters.NumberAt(shown) != app_.CurrentProfitCenter)
    TakeProfitCenter();
  else
    RefreshItemSet(app_);
}

void KVI_Utilities::AskToSwitch(const std::string& what, const FieldValue& to) {
  if (!HasFullAccess(app_) ||
      !AskYesNo("This option will make all inventory items " + what + ". " + kGoOn))
    return;
  WorkOnTheOneShown();
  if (SetInAllParts(app_, {to})) Inform("Process completed.");
}

void KVI_Utilities::AskToZero() {
  if (!HasFullAccess(app_) ||
      !AskToRemove(std::string("This option will 0 (zero) out all quantities on hand and "
                               "valuations.  Current costs will remain. ") +
                   kGoOn))
    return;
  if (!BackUpBefore(app_, "zeroing the inventory")) return;
  WorkOnTheOneShown();
  if (SetInAllParts(app_, {{"valuation", 0.0}, {"qty_on_hand", 0.0}}))
    Inform("Valuations and quantities updated to 0.");
}

// The pass tells of its own failures and has no result: the closing box comes unless the user would
// not wait for another desk.
void KVI_Utilities::AskToRevalue() {
  if (!HasFullAccess(app_) ||
      !AskYesNo(std::string("This option will update all valuations using the selected valuation "
                            "method.  ") +
                    kGoOn,
                "KV Inventory"))
    return;
  WorkOnTheOneShown();
  const auto revalue = [this] {
    UpdateAllValuations(app_.CurrentDatabase, app_.settings.Valuation, app_.desktop,
                        app_.CurrentProfitCenter);
  };
  if (WriteUnderLocks(app_.desktop, app_.CurrentDatabase, revalue)) Inform("Valuations updated.");
}

void KVI_Utilities::AskToUpdateItems() {
  if (!HasFullAccess(app_)) return;
  if (!AskYesNo(std::string("\n\nThis option will update all of your items to the latest names and "
                            "descriptions. ") +
                    kGoOn,
                kPartGroup))
    return Inform(kPartGroup + " NOT updated.", kPartGroup);
  if (UpdatePartGroupItems(app_)) Inform(kPartGroup + " updated.", kPartGroup);
}

void KVI_Utilities::AskToRemovePartGroups() {
  if (!HasFullAccess(app_)) return;
  const std::string warning =
      "THIS WILL REMOVE ALL " + kPartGroups + "!\n\nAre you sure you want to do this?";
  if (!AskToRemove(warning, kTitle) || !AskToRemove("2nd WARNING!  " + warning, kTitle)) return;
  if (!BackUpBefore(app_, "removing all " + kPartGroupsLower)) return;
  WorkOnTheOneShown();
  const std::string number = Str(app_.CurrentProfitCenter);
  if (!RunTogether(app_, {"DELETE FROM R_Master WHERE PCenter = " + number +
                              " AND Len(lTrim(rtrim(Rec_ID))) > 0;",
                          "DELETE FROM Inv_Recipe WHERE PCenter = " + number +
                              " AND Len(ltrim(rTrim(Rec_ID))) > 0;"}))
    return;
  RefreshMasterRecordsets(app_);
  Inform(kPartGroups + " have been removed.");
}

// However the screen was left: the table never stays without a row.
void KVI_Utilities::AskToRemoveItems() {
  if (!HasFullAccess(app_)) return;
  WorkOnTheOneShown();
  app_.screens.ShowModal(app_.Get<KVI_DeleteInventory>());
  const auto ensure = [this] { EnsureBaseRecord(app_.CurrentDatabase, app_.ItemSet); };
  WriteUnderLocks(app_.desktop, app_.CurrentDatabase, ensure);
  RefreshMasterRecordsets(app_);
}

void KVI_Utilities::AskToRemovePurchases() {
  if (!HasFullAccess(app_)) return;
  if (!AskToRemove("THIS WILL REMOVE ALL HISTORICAL PURCHASES\n\nAre you sure you wish to do this?",
                   kTitle))
    return;
  // The second title is as its users know it.
  if (!AskToRemove("Second Warning.  You are about to permanently remove all previous purchase "
                   "records.\n\nContinue?",
                   "Utilties"))
    return;
  if (!BackUpBefore(app_, "removing all purchases")) return;
  if (!RunTogether(app_, {"DELETE FROM Hist_Purchases"})) return;
  RefreshMasterRecordsets(app_);
  Inform("Purchases have been removed.", kTitle);
}

void KVI_Utilities::AskToResetWidths() {
  if (!HasFullAccess(app_) ||
      !AskYesNo("This will reset the spreadsheet column widths to default values for the "
                "Inventory Summary, \n" +
                    kPartGroup + ", and Par Order screens.  Continue?",
                kTitle))
    return;
  bool whole = false;
  const auto reset = [&] { whole = ResetColumnWidths(app_.CurrentDatabase); };
  if (SaveRecord(app_.desktop, app_.CurrentDatabase, reset) == SaveEnd::Saved && whole)
    Inform("Columns widths have been reset.", kTitle);
}

}  // namespace kvi
