#include "stock/KVI_Invoice.h"

#include <iterator>

#include "base/Flag.h"
#include "base/Format.h"
#include "base/Number.h"
#include "grids/ExportGridToSpreadsheet.h"
#include "grids/PaintingOff.h"
#include "grids/PrintScreenGrid.h"
#include "grids/SprdSubs.h"
#include "security/CheckAccess.h"
#include "store/SaveRecord.h"

namespace kvi {

namespace {

enum Columns { kDate = 1, kDueDate, kVendor, kNumber, kAmount, kAdjusted };

struct InvoiceColumn {
  const char *heading, *field, *mask;
  double width;  // twips
  CellKind kind;
};
constexpr const char* kDateMask = "mm/dd/yyyy";
constexpr const char* kAmountMask = "###0.00";
// From the first column on.
constexpr InvoiceColumn kColumns[] = {
    {"Invoice Date", "Date", kDateMask, 1400, CellKind::Date},
    {"Date Due", "date_due", kDateMask, 1400, CellKind::Date},
    {"Vendor Name", "Vendor", "", 2000, CellKind::List},
    {"Invoice Number", "Number", "", 1500, CellKind::Edit},
    {"Total Amount", "amount", kAmountMask, 1500, CellKind::Float},
    {"Adjusted Amount", "adj_amount", kAmountMask, 1500, CellKind::Float},
};
constexpr int kColumnCount = static_cast<int>(std::size(kColumns));
constexpr double kHeadingHeight = 600;  // twips

struct SortChoice {
  const char *text, *order;
};
constexpr SortChoice kSortChoices[] = {
    {"Name", "vendor;"},
    {"Invoice #", "number, vendor;"},
    {"Invoice Date", "date, vendor;"},
    {"Total Amount", "amount, vendor;"},
    {"Due Date", "date_due, vendor;"},
    {"Adjusted Amount", "adj_amount, vendor;"},
};

constexpr const char* kUnsaved = "Unsaved changes have been made.  Save before exiting?";

}  // namespace

KVI_Invoice::KVI_Invoice(Application& app)
    : KviScreen(app, "KVI_Invoice", "Invoice Entry", "Inventory - Invoices") {
  SortCombo.Click = [this] {
    if (!settingUp_ && SaveIfWanted(kUnsaved)) load_data();
  };
  Spread1.CellEdited = [this](int row, int col) {
    changed_ = true;
    if (col == kDate || col == kDueDate) ShowDate(row, col);
    ShowPosition();
  };
  Spread1.ActiveCellChanged = [this] { ShowPosition(); };
  Spread1.RowActions = {&remove};
  Spread1.EmptyText = "No invoices yet. Press New.";
  new_lab.Click = [this] { AddInvoice(); };
  save.Click = [this] { save_changes(); };
  remove.Click = [this] { RemoveActive(); };
  print_lab.Click = [this] { PrintRegister(); };
  exit_lab.Click = [this] { Leave("Spreadsheet changes have been made.  Save before exiting?"); };
  m_delete.Click = [this] { RemoveAll(); };
  M_export.Click = [this] {
    ExportGridToSpreadsheet(Spread1, app_.SpreadsheetPath, app_.ProgramFolder, app_.desktop);
  };
  m_exit.Click = [this] { Exit(); };
}

void KVI_Invoice::Prepare() {
  Spread1.SetRowHeight(0, kHeadingHeight);
  for (int col = 1; col <= kColumnCount; ++col) {
    const InvoiceColumn& column = kColumns[col - 1];
    Spread1.SetHeading(col, column.heading);
    Spread1.SetColWidth(col, column.width);
    Spread1.SetKind(Block::Column(col), column.kind);
    if (column.kind == CellKind::Float) Spread1.SetAlign(Block::Column(col), CellAlign::Right);
  }
  std::vector<std::string> vendors;
  jet::Recordset set =
      app_.CurrentDatabase.OpenRecordset("SELECT * FROM Vendor_Info ORDER BY Name;");
  for (; !set.Eof(); set.MoveNext()) vendors.push_back(set.Text("name"));
  Spread1.SetChoices(kVendor, std::move(vendors));

  const Flag settingUp(settingUp_);
  SortCombo.Clear();
  for (const SortChoice& choice : kSortChoices) SortCombo.AddItem(choice.text);
  SortCombo.SetListIndex(0);
}

void KVI_Invoice::Activate() {
  load_data();
}

std::string KVI_Invoice::Query() const {
  std::string sql = "SELECT * FROM Invoice  ORDER BY ";
  for (const SortChoice& choice : kSortChoices)
    if (SortCombo.Text() == choice.text) sql += choice.order;
  return sql;
}

void KVI_Invoice::load_data() {
  loaded_ = false;
  {
    const Hourglass busy(app_.desktop);
    jet::Recordset invoices = app_.CurrentDatabase.OpenRecordset(Query());
    const PaintingOff hidden(Spread1);
    ClearGrid(Spread1);
    Spread1.SetMaxRows(invoices.RecordCount());
    for (int row = 1; !invoices.Eof(); invoices.MoveNext(), ++row) {
      for (int col = 1; col <= kColumnCount; ++col)
        Spread1.SetText(row, col,
                        Format(invoices[kColumns[col - 1].field], kColumns[col - 1].mask));
    }
    ShadeGridRows(Spread1, app_.UseColors);
    GoToFirstCell(Spread1);
    changed_ = false;
    loaded_ = true;
  }
  ShowPosition();
  if (Spread1.MaxRows() == 0)
    Inform("No invoices in the system.  Click on the 'new' menu option to add a new invoices.");
}

void KVI_Invoice::ShowPosition() {
  ShowGridRow(Spread1, StatusBar1, {kVendor, kNumber}, "invoice");
}

bool KVI_Invoice::MayWrite() {
  if (CheckAccess(app_.AccessString, kInventoryModule, kWriteAccess)) return true;
  SayReadOnly("Kestvar Inventory", "");
  return false;
}

// The rows are made complete before the table is touched: no box of theirs stands between the
// deletion and the rewriting, where another desk would find half a register.
bool KVI_Invoice::save_changes() {
  if (!MayWrite()) return true;
  const Hourglass busy(app_.desktop);
  if (!changed_) return true;
  if (!loaded_) {
    // What could not be read whole is never written over.
    load_data();
    return false;
  }
  for (int row = 1; row <= Spread1.MaxRows(); ++row) CompleteRow(row);
  if (!WriteTable()) return false;
  changed_ = false;
  Spread1.ForgetTyping();
  Say(CountOf(Spread1.MaxRows(), "invoice") + " saved");
  return true;
}

void KVI_Invoice::CompleteRow(int row) {
  for (const int column : {kDate, kDueDate}) CompleteDate(row, column);
  for (const int column : {kVendor, kNumber})
    if (Spread1.Text(row, column).empty()) Spread1.SetText(row, column, "n/a");
}

// A date shows in one form, in whichever it was typed; what is none stays until the save.
void KVI_Invoice::ShowDate(int row, int column) {
  if (const auto date = CDate(Spread1.Text(row, column), app_.clock.Now().year))
    Spread1.SetText(row, column, Format(*date, kDateMask));
}

void KVI_Invoice::CompleteDate(int row, int column) {
  if (CDate(Spread1.Text(row, column))) return;
  Spread1.SetText(row, column, Format(app_.clock.Now(), kDateMask));
  Inform("You have entered an incorrect date, defaulting to today's date.");
}

bool KVI_Invoice::WriteTable() {
  jet::Database& database = app_.CurrentDatabase;
  std::vector<int> invalid;
  const SaveEnd end = SaveRecord(app_.desktop, database, [&] {
    database.WriteAtOnce([&] {
      invalid.clear();
      database.Execute("DELETE * FROM Invoice");
      jet::Recordset invoices = database.OpenRecordset("SELECT * FROM Invoice");
      for (int row = 1; row <= Spread1.MaxRows(); ++row)
        if (!WriteRow(invoices, row)) invalid.push_back(row);
    });
  });
  for (const int row : invalid)
    Inform("Invalid data entry in row " + Str(row) +
           " - you must enter a vendor name and invoice number.\n"
           "Please correct and save again before exiting!");
  return end == SaveEnd::Saved;
}

// False for a row without vendor or number. There is none, as long as blanks become "n/a"; kept
// for the day when they do not.
bool KVI_Invoice::WriteRow(jet::Recordset& invoices, int row) {
  const std::string& vendor = Spread1.Text(row, kVendor);
  const std::string& number = Spread1.Text(row, kNumber);
  if (vendor.empty() || number.empty()) return false;
  invoices.AddNew();
  invoices.Set("Vendor", vendor);
  invoices.Set("Number", number);
  invoices.Set("Date", *CDate(Spread1.Text(row, kDate)));
  invoices.Set("amount", Val(Spread1.Text(row, kAmount)));
  invoices.Set("adj_amount", Val(Spread1.Text(row, kAdjusted)));
  invoices.Set("date_due", *CDate(Spread1.Text(row, kDueDate)));
  invoices.Update();
  return true;
}

bool KVI_Invoice::SaveIfWanted(const std::string& question) {
  return !changed_ || !AskYesNo(question) || save_changes();
}

void KVI_Invoice::AddInvoice() {
  if (!MayWrite()) return;
  if (!SaveIfWanted("Spreadsheet changes have been made.  Save before adding?")) return;
  Spread1.InsertRow(Spread1.MaxRows() + 1);
  changed_ = true;
  ShadeGridRows(Spread1, app_.UseColors);
  GoToRow(Spread1, Spread1.MaxRows());
  Spread1.SetFocus();
}

void KVI_Invoice::RemoveActive() {
  if (Spread1.ActiveRow() < 1) return;
  if (!SaveIfWanted("Spreadsheet changes have been made.  Save before deleting current record?"))
    return;
  ShowPosition();
  if (!AskToRemove("Are you sure you want to remove this 'Invoice?'?", "Invoices")) return;
  Spread1.DeleteRow(Spread1.ActiveRow());
  changed_ = true;
  ShadeGridRows(Spread1, app_.UseColors);
  save_changes();
}

void KVI_Invoice::RemoveAll() {
  if (!AskToRemove("Are you sure you want to remove all 'Invoices?'?", "Invoices")) return;
  ClearGrid(Spread1);
  Spread1.SetMaxRows(0);
  changed_ = loaded_ = true;
  save_changes();
}

// (An empty line stands under the title.)
void KVI_Invoice::PrintRegister() {
  PrintGridUnder(app_.desktop, Spread1, {Caption(), ""});
}

void KVI_Invoice::Leave(const std::string& question) {
  if (SaveIfWanted(question)) CloseScreen();
}

void KVI_Invoice::Exit() {
  Leave(kUnsaved);
}

Layout KVI_Invoice::Arrange() {
  return Column({BannerLayout(), Actions({&new_lab, &save, &remove, &print_lab, &exit_lab}),
                 Row({Field("Sort &By:", SortCombo, 1.6), Gap()}), Fill(Of(Spread1))});
}

}  // namespace kvi
