#include "utilities/KVI_ManageDropLIsts.h"

#include "base/Text.h"
#include "frame/Wording.h"
#include "grids/PaintingOff.h"
#include "grids/PrintScreenGrid.h"
#include "grids/SprdSubs.h"
#include "security/CheckAccess.h"
#include "store/DropDown.h"
#include "store/SaveRecord.h"
#include "vendors/KVI_VendorSummary.h"

namespace kvi {

namespace {

constexpr int kLongestDescription = 50;
constexpr int kRowsForNewValues = 25;
constexpr double kHeadingHeight = 600;      // twips
constexpr double kDescriptionWidth = 3500;  // twips

}  // namespace

KVI_ManageDropLIsts::KVI_ManageDropLIsts(Application& app)
    : KviScreen(app, "KVI_ManageDropLIsts", "Manage Drop Lists", "Manage Drop Lists"),
      lists_{{{&o_iil, "DD_inv_loc", "Description"},
              {&o_iic, "DD_category", "Description"},
              {&o_hib, "DD_how_inv", "Description"},
              {&o_rc, "DD_rg_cat", "Description"},
              {&o_hub, "DD_how_used", "Description"},
              {&o_hpb, "DD_how_purchased", "Description"},
              // Sorted by the vendor's name, but the descriptions are shown and written.
              {&o_wto, "Vendor_Info", "name"}}} {
  PaperGoodsCombo.Text = "Paper Goods";
  for (const List& list : lists_) list.option->Click = [this, &list] { ShowList(list); };
  Save.Click = [this] { save_changes(); };
  remove.Click = [this] { RemoveRow(); };
  sort_lab.Click = [this] { SortRows(); };
  print_lab.Click = [this] { PrintList(); };
  vendors.Click = [this] { app_.screens.ShowModal(app_.Get<KVI_VendorSummary>()); };
  exit_lab.Click = [this] { Exit(); };
  PaperGoodsCombo.Change = [this] {
    if (Trim(PaperGoodsCombo.Text()).empty()) PaperGoodsCombo.Text = "Paper Goods";
  };
  Spread1.CellEdited = [this](int, int) {
    changed_ = true;
    ShowGridRow(Spread1, StatusBar1, {}, "value");
  };
  Spread1.ActiveCellChanged = [this] { ShowGridRow(Spread1, StatusBar1, {1}, "value"); };
  Spread1.RowActions = {&remove};
  Spread1.AdvancedPastLastCell = [this] { save_changes(); };
}

void KVI_ManageDropLIsts::Prepare() {
  Spread1.SetHeading(1, "Description");
  Spread1.SetRowHeight(0, kHeadingHeight);
  Spread1.SetColWidth(1, kDescriptionWidth);
  Spread1.SetTypeEditLen(Block::All(), kLongestDescription);
  for (const List& list : lists_) list.option->Value = false;
  shown_ = nullptr;
  changed_ = false;
}

void KVI_ManageDropLIsts::Activate() {
  o_iil.Value = true;
  o_rc.Caption = kPartGroup + " Category";
}

void KVI_ManageDropLIsts::ShowList(const List& list) {
  if (&list == shown_) return;
  if (!SaveIfWanted()) {
    // What was typed stays, and so does its list.
    shown_->option->Value = true;
    return;
  }
  // A list that could not be read is not on show, and so is never written over.
  shown_ = nullptr;
  ClearGrid(Spread1);
  load_data(list);
  shown_ = &list;
}

void KVI_ManageDropLIsts::load_data(const List& list) {
  jet::Recordset values = app_.CurrentDatabase.OpenRecordset(
      std::string("SELECT * FROM ") + list.table + " ORDER BY " + list.sortField + ";");
  const PaintingOff hidden(Spread1);
  int row = 0;
  for (; !values.Eof(); values.MoveNext()) {
    if (++row > Spread1.MaxRows()) Spread1.SetMaxRows(row);
    Spread1.SetText(row, 1, values.Text("Description"));
  }
  Spread1.SetMaxRows(row + kRowsForNewValues);
  GoToFirstCell(Spread1);
  changed_ = false;
}

bool KVI_ManageDropLIsts::save_changes() {
  if (shown_ == nullptr) return true;
  if (!CheckAccess(app_.AccessString, kUtilityModule, kWriteAccess)) {
    Inform("Full Access to Utilities required for this option.\n\nChanges NOT Saved");
    return false;
  }
  jet::Database& database = app_.CurrentDatabase;
  const SaveEnd end = SaveRecord(
      app_.desktop, database, [&] { database.WriteAtOnce([&] { RewriteList(shown_->table); }); });
  GoToFirstCell(Spread1);
  if (end != SaveEnd::Saved) return false;
  changed_ = false;
  Spread1.ForgetTyping();
  Say("List saved");
  return true;
}

void KVI_ManageDropLIsts::RewriteList(const std::string& table) {
  app_.CurrentDatabase.Execute("DELETE * FROM " + table + " WHERE Len(Description) > 0;");
  jet::Recordset values = app_.CurrentDatabase.OpenRecordset("SELECT * FROM " + table + ";");
  for (int row = 1; row <= Spread1.MaxRows(); ++row) {
    const std::string text = Trim(Spread1.Text(row, 1));
    if (text.empty()) continue;
    values.AddNew();
    values.Set("Description", text);
    values.Update();
  }
}

bool KVI_ManageDropLIsts::SaveIfWanted() {
  if (!changed_) return true;
  if (AskYesNo("Changes have been made.  Save before exiting?")) return save_changes();
  changed_ = false;
  return true;
}

void KVI_ManageDropLIsts::RemoveRow() {
  if (Spread1.ActiveRow() < 1) return;
  ShowGridRow(Spread1, StatusBar1, {1}, "value");
  if (!AskToRemove("Are you sure you want to remove this row?", "Set Drop Info")) return;
  Spread1.DeleteRow(Spread1.ActiveRow());
  changed_ = true;
  save_changes();
}

void KVI_ManageDropLIsts::SortRows() {
  Spread1.Sort(1, true);
  changed_ = true;
  save_changes();
}

void KVI_ManageDropLIsts::PrintList() {
  if (AskToPrint()) PrintGridUnder(app_.desktop, Spread1, {"Kestvar Inventory"});
}

void KVI_ManageDropLIsts::Exit() {
  if (!SaveIfWanted()) return;
  CloseScreen();
  LoadDropLists(app_);
}

Layout KVI_ManageDropLIsts::Arrange() {
  std::vector<Layout> options;
  for (const List& list : lists_) options.push_back(Of(*list.option));
  return Column(
      {BannerLayout(), Actions({&Save, &remove, &sort_lab, &print_lab, &vendors, &exit_lab}),
       Fill(Row({Column({Frame("List", Column(std::move(options))),
                         Field("&Category Name for Paper Goods", PaperGoodsCombo), Gap()}),
                 Fill(Column({Text("To add a value, type it into an empty line."),
                              Fill(Of(Spread1))}))}))});
}

}  // namespace kvi
