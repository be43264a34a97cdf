#include "vendors/KVI_VendorSummary.h"

#include <iterator>

#include "base/Text.h"
#include "grids/ExportGridToSpreadsheet.h"
#include "grids/PaintingOff.h"
#include "grids/PrintScreenGrid.h"
#include "grids/SprdSubs.h"
#include "store/BackUp.h"
#include "store/DropDown.h"
#include "store/SaveRecord.h"
#include "vendors/KVI_VendorDetail.h"

namespace kvi {

namespace {

constexpr const char* kTitle = "Vendors";
constexpr double kHeadingHeight = 600;  // twips

struct VendorColumn {
  const char* heading;
  const char* field;
  double width = Spread::kDefaultColWidth;  // twips
};
constexpr VendorColumn kColumns[] = {
    {"Vendor Name", "name", 2000},
    {"Contact/ Manager 1", "contact1", 1200},
    {"Contact/ Manager 2", "contact2", 1200},
    {"Address", "address", 2200},
    {"City", "city", 1000},
    {"State", "state", 1000},
    {"Zip", "zip", 800},
    {"Phone 1", "phone1", 1600},
    {"Phone 2", "phone2", 1600},
    {"Fax", "fax", 1000},
    {"Email", "EmailAddress", 1000},
    {"Website", "VendorURL"},
    {"Code", "VendorCode"},
    {"User name", "VendorUserName"},
    {"ID", "VendorID"},
};

}  // namespace

KVI_VendorSummary::KVI_VendorSummary(Application& app)
    : KviScreen(app, "KVI_VendorSummary", "Vendor Summary", "Vendor Summary") {
  Spread1.RowActions = {&remove, &find_lab, &print_lab};
  Spread1.KeptCols = {kNameColumn};
  Spread1.EmptyText = "No vendors. Press New.";
  HandleEvents();
}

void KVI_VendorSummary::HandleEvents() {
  new_lab.Click = [this] { NewVendor(); };
  remove.Click = [this] { RemoveVendor(); };
  duplicate.Click = [this] { EmptyList(); };
  save.Click = [this] {
    save_changes();
    Say("Nothing to save here: each vendor is saved on its own screen.");
  };
  find_lab.Click = [this] { FindVendor(); };
  print_lab.Click = [this] { PrintScreenGrid(app_, *this, Spread1); };
  exit_lab.Click = m_exit.Click = [this] { Exit(); };
  m_export.Click = [this] {
    ExportGridToSpreadsheet(Spread1, app_.SpreadsheetPath, app_.ProgramFolder, app_.desktop);
  };
  Spread1.DblClick = [this](int row, int) { OpenVendor(row); };
  Spread1.CellEdited = [this](int, int) { changed_ = true; };
  Spread1.ActiveCellChanged = [this] { ShowPosition(); };
}

void KVI_VendorSummary::Prepare() {
  Spread1.SetMaxCols(static_cast<int>(std::size(kColumns)));
  Spread1.SetRowHeight(0, kHeadingHeight);
  int col = 0;
  for (const VendorColumn& column : kColumns) {
    Spread1.SetHeading(++col, column.heading);
    Spread1.SetColWidth(col, column.width);
  }
  LockGrid(Spread1);
}

void KVI_VendorSummary::Activate() {
  load_data();
  ShadeGridRows(Spread1, app_.UseColors);
  ShowPosition();
}

void KVI_VendorSummary::load_data() {
  const LoadStatements run(app_.desktop);
  run([&] { FillList(); });
}

void KVI_VendorSummary::FillList() {
  const Hourglass busy(app_.desktop);
  const PaintingOff hidden(Spread1);
  const jet::ReadTogether reads(app_.CurrentDatabase);
  jet::Recordset vendors =
      app_.CurrentDatabase.OpenRecordset("SELECT * FROM vendor_info ORDER BY name;");
  ClearGrid(Spread1);
  Spread1.SetMaxRows(vendors.RecordCount());
  for (int row = 1; !vendors.Eof(); vendors.MoveNext(), ++row) {
    int col = 0;
    for (const VendorColumn& column : kColumns)
      Spread1.SetText(row, ++col, Trim(vendors.Text(column.field)));
  }
  Spread1.MarkSorted(kNameColumn);
  if (Spread1.ActiveRow() < 1) GoToFirstCell(Spread1);
  changed_ = false;
}

void KVI_VendorSummary::ShowPosition() {
  ShowGridRow(Spread1, StatusBar1, {kNameColumn, kPhoneColumn});
}

void KVI_VendorSummary::OpenVendor(int row) {
  if (row < 1) return;
  Spread1.SetActiveCell(row, Spread1.ActiveCol());
  app_.Get<KVI_VendorDetail>().OpenVendor(Spread1.Text(row, kNameColumn));
}

// The list stands on the vendor that was just added; one that was not saved is not in it.
void KVI_VendorSummary::NewVendor() {
  const std::string name = app_.Get<KVI_VendorDetail>().OpenVendor("");
  for (int row = 1; !name.empty() && row <= Spread1.MaxRows(); ++row)
    if (Spread1.Text(row, kNameColumn) == name) return GoToRow(Spread1, row);
}

// Takes the vendor and the parts, of any profit center, that name it first. What names it second or
// third stays, and so do the purchases, part group lines, periods and orders of those parts. A
// blank name would take every part without a vendor.
void KVI_VendorSummary::RemoveVendor() {
  const int row = Spread1.ActiveRow();
  const std::string name = Trim(Spread1.Text(row, kNameColumn));
  if (row < 1 || name.empty()) return Say("No vendor with a name is chosen.");
  // Which one it is stands below while the questions do.
  ShowPosition();
  if (!AskToRemove("Are you sure you want to remove this vendor and all associated inventory data?",
                   kTitle))
    return;
  if (!AskToRemove("SECOND CHECK!!!!!\n\nAre you sure you want to remove this vendor and all "
                   "inventory items associated to this vendor?",
                   kTitle))
    return;
  if (!BackUpBefore(app_, "removing a vendor")) return;
  const Hourglass busy(app_.desktop);
  jet::Database& database = app_.CurrentDatabase;
  long parts = 0;
  const auto removeBoth = [&] {
    database.Execute("DELETE * FROM Vendor_Info WHERE Name = '" + name + "';");
    parts = database.Execute("DELETE * FROM I_Master WHERE where1 = '" + name + "';");
  };
  if (!WriteUnderLocks(app_.desktop, database, [&] { database.WriteAtOnce(removeBoth); })) return;
  Spread1.DeleteRow(row);
  ShadeGridRows(Spread1, app_.UseColors);
  FillVendorLists(app_);
  ShowPosition();
  Say(name + " was removed, and with it " + CountOf(static_cast<int>(parts), "part") + ".");
}

// Only the list: the table is not touched.
void KVI_VendorSummary::EmptyList() {
  if (!AskToRemove("This option will remove ALL rows in the spreadsheet.\nContinue?")) return;
  if (!AskToRemove("Are you positive?")) return;
  ClearGrid(Spread1);
  Spread1.SetMaxRows(0);
  ShowPosition();
  Say("Only this list was emptied: no vendor was removed.");
}

void KVI_VendorSummary::FindVendor() {
  const auto answer = app_.desktop.InputBox("Enter Vendor Name", "Kestvar Inventory");
  const std::string wanted = UCase(Trim(answer.value_or("")));
  if (wanted.empty()) return;
  for (int row = 1; row <= Spread1.MaxRows(); ++row)
    if (UCase(Spread1.Text(row, kNameColumn)).find(wanted) != std::string::npos)
      return GoToRow(Spread1, row);
  Inform("No match");
}

void KVI_VendorSummary::Exit() {
  if (changed_ && AskOkCancel("Changes have been made.  Save before exiting?")) save_changes();
  changed_ = false;
  CloseScreen();
}

Layout KVI_VendorSummary::Arrange() {
  return Column({BannerLayout(),
                 Actions({&new_lab, &remove, &duplicate, &save, &find_lab, &print_lab, &exit_lab}),
                 Of(Label1), Fill(Of(Spread1))});
}

}  // namespace kvi
