#include "vendors/KVI_VendorDetail.h"

#include "base/Text.h"
#include "frame/StrgSubs.h"
#include "store/DropDown.h"
#include "store/SaveRecord.h"

namespace kvi {

namespace {

constexpr int kLongestText = 255;

}  // namespace

KVI_VendorDetail::KVI_VendorDetail(Application& app)
    : KviScreen(app, "KVI_VendorDetail", "Vendor Detail Information", "Vendor Detail Information"),
      entries_{{{&VendorName, "name"},
                {&Address, "Address"},
                {&City, "City"},
                {&State, "State"},
                {&ZipCode, "Zip"},
                {&Fax, "Fax"},
                {&Email, "EmailAddress"},
                {&Contact1, "Contact1"},
                {&Phone1, "Phone1"},
                {&Contact2, "Contact2"},
                {&Phone2, "Phone2"},
                {&VendorCode, "VendorCode"},
                {&VendorID, "VendorID"},
                {&VendorURL, "VendorURL"},
                {&VendorUserName, "VendorUserName"}}} {
  for (const Entry& entry : entries_) {
    entry.box->MaxLength = kLongestText;
    entry.box->Change = [this] { changed_ = true; };
  }
  VendorName.LostFocus = [this] { VendorName.Text = StripQuotes(VendorName.Text()); };
  save_lab.Click = [this] { SaveVendor(); };
  exit_lab.Click = [this] { Exit(); };
}

std::string KVI_VendorDetail::OpenVendor(const std::string& name) {
  vendor_ = Trim(name);
  app_.screens.ShowModal(*this);
  return Trim(VendorName.Text());
}

void KVI_VendorDetail::Activate() {
  for (const Entry& entry : entries_) entry.box->Text = "";
  const LoadStatements run(app_.desktop);
  run([&] {
    if (!vendor_.empty()) ShowVendor();
  });
  changed_ = false;
  StatusBar1.SetPanelText(1, vendor_.empty() ? "New vendor" : vendor_);
  Say("");
  VendorName.SetFocus();
}

void KVI_VendorDetail::ShowVendor() {
  jet::Recordset vendor = app_.CurrentDatabase.OpenRecordset(
      "SELECT * FROM vendor_info WHERE name = '" + vendor_ + "';");
  vendor.MoveFirst();
  for (const Entry& entry : entries_) entry.box->Text = Trim(vendor.Text(entry.field));
}

void KVI_VendorDetail::SaveVendor() {
  const std::string name = Trim(VendorName.Text());
  if (name.empty()) return Inform("Vendor Name is required");
  const Hourglass busy(app_.desktop);
  bool added = false;
  if (SaveRecord(app_.desktop, app_.CurrentDatabase, [&] { added = Write(name); }) !=
      SaveEnd::Saved)
    return;
  TellSaved(name, added);
  vendor_ = name;
  changed_ = false;
}

// An empty box is stored as one blank.
bool KVI_VendorDetail::Write(const std::string& name) {
  jet::Recordset vendor =
      app_.CurrentDatabase.OpenRecordset("SELECT * FROM vendor_info WHERE name = '" + name + "';");
  const bool added = vendor.Eof();
  if (added)
    vendor.AddNew();
  else
    vendor.Edit();
  for (const Entry& entry : entries_) {
    const std::string& text = entry.box->Text();
    vendor.Set(entry.field, text.empty() ? " " : Trim(text));
  }
  vendor.Update();
  return added;
}

// Nobody is asked about another name, so what became of the two vendors is said.
void KVI_VendorDetail::TellSaved(const std::string& name, bool added) {
  const bool renamed = !EqualsNoCase(name, vendor_);
  std::string said = name + " was saved.";
  if (added)
    said = name + " was added.";
  else if (renamed)
    said = name + " stood already and was written over.";
  if (renamed && !vendor_.empty()) said += "  " + vendor_ + " stays as it was, with its parts.";
  StatusBar1.SetPanelText(1, name);
  Say(said);
}

// What was typed is not lost by a save that failed.
void KVI_VendorDetail::Exit() {
  if (changed_ && AskYesNo("Save changes?")) {
    SaveVendor();
    if (changed_) return;
  }
  CloseScreen();
  FillVendorLists(app_);
}

Layout KVI_VendorDetail::Arrange() {
  constexpr double kWide = 2.6, kNarrow = 1.3;
  return Column(
      {BannerLayout(), Actions({&save_lab, &exit_lab}),
       Row({Form({Field("Vendor Name", VendorName, kWide), Field("Address", Address, kWide),
                  Field("City", City, kWide), Field("State", State, kNarrow),
                  Field("Zip Code", ZipCode, kNarrow), Field("Vendor Code", VendorCode, kNarrow),
                  Field("Vendor ID", VendorID, kNarrow)}),
            Form({Field("Contact 1", Contact1, kWide), Field("Phone 1", Phone1, kWide),
                  Field("Contact 2", Contact2, kWide), Field("Phone 2", Phone2, kWide),
                  Field("Fax Number", Fax, kWide), Field("E-mail Address", Email, kWide),
                  Field("Vendor URL", VendorURL, kWide),
                  Field("Vendor User Name", VendorUserName, kWide)}),
            Gap()}),
       Gap()});
}

}  // namespace kvi
