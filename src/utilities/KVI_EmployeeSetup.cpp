#include "utilities/KVI_EmployeeSetup.h"

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "grids/PaintingOff.h"
#include "grids/SprdSubs.h"
#include "store/SaveRecord.h"
#include "utilities/KVI_EmployeeSetupDetail.h"

namespace kvi {

namespace {

constexpr const char* kTitle = "Employee Setup";
constexpr const char* kEmployees = "SELECT * FROM EmployeeDB";
constexpr int kCodeColumn = 1, kNameColumn = 2;
constexpr int kLevelColumn = 3;         // has no place in the list: every level is saved as 0
constexpr double kCodeWidth = 1600;     // twips
constexpr double kNameWidth = 4200;     // twips
constexpr double kHeadingHeight = 400;  // twips

}  // namespace

KVI_EmployeeSetup::KVI_EmployeeSetup(Application& app)
    : KviScreen(app, "KVI_EmployeeSetup", kTitle, "Inventory - Employee Setup") {
  dai.Click = [this] { app_.Get<KVI_EmployeeSetupDetail>().OpenNew(); };
  remove.Click = [this] { RemoveEmployee(); };
  print_lab.Click = [this] { PrintImage(); };
  exit_lab.Click = [this] { Exit(); };
  Spread1.DblClick = [this](int row, int) { OpenEmployee(row); };
  Spread1.ActiveCellChanged = [this] { ShowPosition(); };
  Spread1.RowActions = {&remove};
  Spread1.EmptyText = "No employees. Press New.";
}

void KVI_EmployeeSetup::Prepare() {
  Spread1.SetHeading(kCodeColumn, "Employee Code");
  Spread1.SetHeading(kNameColumn, "Employee Name");
  Spread1.SetRowHeight(0, kHeadingHeight);
  Spread1.SetColWidth(kCodeColumn, kCodeWidth);
  Spread1.SetColWidth(kNameColumn, kNameWidth);
}

void KVI_EmployeeSetup::Activate() {
  const LoadStatements run(app_.desktop);
  run([&] { FillList(); });
  ShowPosition();
}

void KVI_EmployeeSetup::FillList() {
  const Hourglass busy(app_.desktop);
  const PaintingOff hidden(Spread1);
  jet::Recordset employees = app_.CurrentDatabase.OpenRecordset(kEmployees);
  ClearGrid(Spread1);
  Spread1.SetMaxRows(employees.RecordCount());
  for (int row = 1; !employees.Eof(); employees.MoveNext(), ++row) {
    Spread1.SetText(row, kCodeColumn, employees.Text("E_Code"));
    Spread1.SetText(row, kNameColumn, employees.Text("E_Name"));
  }
  LockGrid(Spread1);
  if (Spread1.ActiveRow() < 1) GoToFirstCell(Spread1);
}

void KVI_EmployeeSetup::ShowPosition() {
  ShowGridRow(Spread1, StatusBar1, {kCodeColumn, kNameColumn});
}

void KVI_EmployeeSetup::OpenEmployee(int row) {
  if (row < 1) return;
  Spread1.SetActiveCell(row, Spread1.ActiveCol());
  app_.Get<KVI_EmployeeSetupDetail>().OpenEmployee(Spread1.Text(row, kCodeColumn));
}

// The list shows afterwards who is left, also where the removal failed.
void KVI_EmployeeSetup::RemoveEmployee() {
  const int row = Spread1.ActiveRow();
  if (row < 1) return;
  // Who it is stands below while the question does.
  ShowPosition();
  if (!AskToRemove("Are you sure you want to remove this employee?", kTitle)) return;
  jet::Database& database = app_.CurrentDatabase;
  const std::string sql =
      std::string(kEmployees) + " where e_code = " + Str(Val(Spread1.Text(row, kCodeColumn)));
  const LoadStatements run(app_.desktop);
  run([&] {
    WriteUnderLocks(app_.desktop, database, [&] {
      jet::Recordset employee = database.OpenRecordset(sql);
      if (!employee.Eof()) employee.Delete();
    });
  });
  run([&] { FillList(); });
  ShowPosition();
}

void KVI_EmployeeSetup::save_changes() {
  jet::Recordset employees = app_.CurrentDatabase.OpenRecordset(kEmployees);
  for (int row = 1; row <= Spread1.MaxRows(); ++row) {
    const std::string code = Spread1.Text(row, kCodeColumn), name = Spread1.Text(row, kNameColumn),
                      level = Spread1.Text(row, kLevelColumn);
    try {
      employees.Edit();
      employees.Set("E_Code", Str(Val(Left(code, 1))));
      employees.Set("E_Name", Str(Val(name)));
      employees.Set("E_SL", Val(level));
      employees.Update();
    } catch (const RunTimeError&) {
      employees.CancelUpdate();
      Inform("You have an item which has not been input correctly:\n\nCode: " + code +
                 "  Name: " + name + "  Security Level: " + level + "\n\nCorrect this and re-save!",
             kTitle);
    }
    if (!employees.Eof()) employees.MoveNext();
  }
}

Layout KVI_EmployeeSetup::Arrange() {
  return Column({BannerLayout(), Actions({&dai, &remove, &print_lab, &exit_lab}), Of(Label1),
                 Fill(Of(Spread1))});
}

}  // namespace kvi
