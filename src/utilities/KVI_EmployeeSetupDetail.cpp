#include "utilities/KVI_EmployeeSetupDetail.h"

#include "base/Number.h"
#include "base/Text.h"
#include "store/SaveRecord.h"

namespace kvi {

namespace {

// The screen speaks of 4 digits, while 5 are taken, as many as the pad of the sign-in has room for.
constexpr std::size_t kLongestCode = 5;
constexpr int kLongestName = 255;
constexpr const char* kReadOnly = "Read Only Access";
constexpr const char* kFull = "Full Access";
constexpr const char* kNotFound = "Employee record not found";

std::string ByNumber(const std::string& number) {
  return "SELECT * FROM EmployeeDB WHERE Val(E_Code) = " + number + ";";
}

}  // namespace

KVI_EmployeeSetupDetail::KVI_EmployeeSetupDetail(Application& app)
    : KviScreen(app, "KVI_EmployeeSetupDetail", "Employees", "Employees"),
      rights_{{{"Inventory maintenance", &ReadInv, &WriteInv},
               {"Part group maintenance", &ReadRecipe, &WriteRecipe},
               {"Manage orders", &ReadPSO, &WritePSO},
               {"Update inventory", &ReadSpeedy, &WriteSpeedy},
               {"Reports && analysis", &ReadPrint, &WritePrint},
               {"Preferences", nullptr, &WriteUtil}}} {
  E_Name.MaxLength = kLongestName;
  E_Code.LostFocus = [this] { CheckCode(); };
  save.Click = [this] { SaveEmployee(); };
  print_lab.Click = [this] { PrintImage(); };
  exit_lab.Click = [this] { Exit(); };
  Label7.Click = [this] { TickAll(true); };
  Label5.Click = [this] { TickAll(false); };
  std::size_t count = 0;
  for (const Right& right : rights_) {
    if (right.read != nullptr) boxes_[count++] = right.read;
    boxes_[count++] = right.write;
    Couple(right);
  }
}

// Who may write may read.
void KVI_EmployeeSetupDetail::Couple(const Right& right) {
  const std::string name = Replace(right.label, "&&", "and") + ": ";
  right.write->SpokenName = name + kFull;
  if (right.read == nullptr) return;
  right.read->SpokenName = name + kReadOnly;
  right.read->Click = [right] {
    if (!right.read->Value) right.write->Value = false;
  };
  right.write->Click = [right] {
    if (right.write->Value) right.read->Value = true;
  };
}

void KVI_EmployeeSetupDetail::TickAll(bool on) {
  for (CheckBox* box : boxes_) box->Value = on;
}

void KVI_EmployeeSetupDetail::OpenNew() {
  number_.reset();
  app_.screens.ShowModal(*this);
}

void KVI_EmployeeSetupDetail::OpenEmployee(const std::string& code) {
  number_ = Str(Val(code));
  app_.screens.ShowModal(*this);
}

void KVI_EmployeeSetupDetail::Activate() {
  E_Code.Text = E_Name.Text = "";
  TickAll(false);
  const LoadStatements run(app_.desktop);
  run([&] {
    if (number_) ShowEmployee();
  });
  E_Code.SetFocus();
}

void KVI_EmployeeSetupDetail::ShowEmployee() {
  jet::Recordset employee = app_.CurrentDatabase.OpenRecordset(ByNumber(*number_));
  if (employee.Eof()) return Inform(kNotFound);
  E_Code.Text = employee.Text("E_Code");
  E_Name.Text = employee.Text("E_Name");
  for (CheckBox* box : boxes_) box->Value = employee[box->Name()].Boolean();
}

void KVI_EmployeeSetupDetail::CheckCode() {
  if (Len(E_Code.Text()) <= kLongestCode) return;
  Inform("Employee code can not exceed 5 characters");
  E_Code.Text = "";
  E_Code.SetFocus();
}

void KVI_EmployeeSetupDetail::SaveEmployee() {
  if (Val(E_Code.Text()) < 1) return Inform("Employee code must be greater than zero");
  if (Trim(E_Name.Text()).empty()) return Inform("Invalid employee name");
  jet::Database& database = app_.CurrentDatabase;
  std::string refused;
  const SaveEnd end =
      SaveRecord(app_.desktop, database, [&] { database.WriteAtOnce([&] { refused = Write(); }); });
  if (end != SaveEnd::Saved) return;
  if (!refused.empty()) return Inform(refused);
  CloseScreen();
}

std::string KVI_EmployeeSetupDetail::Write() {
  const std::string number = Str(Val(E_Code.Text()));
  jet::Recordset employee = app_.CurrentDatabase.OpenRecordset(ByNumber(number));
  if (!employee.Eof() && number != number_)
    return "Duplicate employee code.  Please re-enter code.";
  if (employee.Eof() && number_) return kNotFound;
  if (number_)
    employee.Edit();
  else
    employee.AddNew();
  employee.Set("E_Code", E_Code.Text());
  employee.Set("E_Name", E_Name.Text());
  for (const CheckBox* box : boxes_) employee.Set(box->Name(), box->Value());
  employee.Update();
  return "";
}

Layout KVI_EmployeeSetupDetail::Arrange() {
  std::vector<Layout> table{Text(""), Text(kReadOnly), Text(kFull)};
  for (const Right& right : rights_) {
    table.push_back(Text(right.label));
    table.push_back(right.read == nullptr ? Gap() : Of(*right.read));
    table.push_back(Of(*right.write));
  }
  Layout information = Column(
      {Form({Row({Field("Code", E_Code, 1), Text("(Access code must be 4 digits or less)"), Gap()}),
             Field(" Name", E_Name, 3)}),
       Gap()});
  Layout rights = Column({Actions({&Label7, &Label5}), GridOf(3, std::move(table)), Gap()});
  return Column({BannerLayout(), Actions({&save, &print_lab, &exit_lab}),
                 Fill(Tabs(SSTab1, {std::move(information), std::move(rights)}))});
}

}  // namespace kvi
