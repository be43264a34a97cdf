#include "base/Text.h"
#include "frame/GENERAL.h"
#include "frame/StrgSubs.h"
#include "items/ItemDetailScreen.h"
#include "items/ItemRecord.h"
#include "security/CheckAccess.h"
#include "store/DButils.h"
#include "store/SaveRecord.h"

// The save of the part on the detail screen. Only I_Master is written: no purchase, no part group.
namespace kvi {

void ItemDetailScreen::SaveItem() {
  if (!CheckAccess(app_.AccessString, kInventoryModule, kWriteAccess)) {
    SayReadOnly("KV Inventory");
    LoadItemOnActivate();
    return;
  }
  if (missing_)
    return Inform("Part " + Trim(i_num.Text()) + " could not be loaded.\n\nChanges NOT Saved",
                  "KV Inventory");
  bool wanted = true;
  const SaveEnd end = SaveRecord(app_.desktop, app_.CurrentDatabase, [&] {
    const jet::ReadTogether reads(app_.CurrentDatabase);
    iname.Text = StripAmpersands(StripQuotes(iname.Text()));
    wanted = NumberIsWanted();
    if (!wanted) return;
    WarnOfSharedName();
    const Hourglass busy(app_.desktop);
    GiveNumber();
    WriteItem();
  });
  if (!wanted) return;
  if (end == SaveEnd::Saved) {
    SetDirty(false);
    newItem_ = false;
    Say(SavedText());
    return;
  }
  if (app_.ItemSet.IsOpen()) app_.ItemSet.CancelUpdate();
  if (end == SaveEnd::Duplicate) SetCaption("Detail - Add New Item");
}

// Asks before a new part goes over one that stands under its number.
bool ItemDetailScreen::NumberIsWanted() {
  const std::string number = Trim(i_num.Text());
  if (!newItem_ || !OpenItemRecord(app_.CurrentDatabase, number)) return true;
  if (AskYesNo("ID " + number + " already exists. Overwrite exisiting record?")) return true;
  i_num.Text = "";
  return false;
}

// Looks at the first part of the name alone, which may be this one.
void ItemDetailScreen::WarnOfSharedName() {
  const jet::Recordset named = app_.CurrentDatabase.OpenRecordset(
      "select * from i_master where ucase(trim(name))='" + Trim(UCase(iname.Text())) + "'");
  if (named.Eof() || Trim(UCase(named.Text("inv_id"))) == Trim(UCase(i_num.Text()))) return;
  Inform(
      "WARNING: This part/inventory name is already in use.  You should use a unique name. As a "
      "suggestion you could add your part # to the name.  If you choose to use a duplicate name, "
      "please make sure to select parts by part # inside the work order detail screen.  Changes "
      "have been saved, please update name if you want to be unique.");
}

void ItemDetailScreen::GiveNumber() {
  if (!Trim(i_num.Text()).empty()) return;
  i_num.Text = NextInvId(app_.CurrentDatabase);
  Inform(
      "You must enter an number before saving.  KVI has created one for you for now.  Please "
      "verify and save again.",
      "Save changes to inventory");
}

// The row's existence alone decides between adding and changing.
void ItemDetailScreen::WriteItem() {
  app_.ItemSet = app_.CurrentDatabase.OpenRecordset(
      "SELECT * FROM I_Master WHERE trim(Inv_ID) = '" + Trim(i_num.Text()) + "';");
  if (app_.ItemSet.Eof() && app_.ItemSet.Bof()) {
    app_.ItemSet.AddNew();
  } else {
    app_.ItemSet.MoveFirst();
    app_.ItemSet.Edit();
  }
  WriteFields(*this, app_.CurrentProfitCenter, app_.ItemSet);
  app_.ItemSet.Update();
}

}  // namespace kvi
