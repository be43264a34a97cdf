#include "KVI_Example.h"

#include "security/CheckAccess.h"
#include "store/SaveRecord.h"

namespace kvi {

KVI_Example::KVI_Example(Application& app)
    : KviScreen(app, "KVI_Example", "Example", "Inventory - Example") {
  save.Click = [this] { save_changes(); };
  exit_lab.Click = [this] { Exit(); };
}

void KVI_Example::OpenEmployee(const std::string& code) {
  code_ = code;
  app_.screens.ShowModal(*this);
}

std::string KVI_Example::Query() const {
  return "SELECT * FROM EmployeeDB WHERE E_Code = '" + code_ + "';";
}

void KVI_Example::Activate() {
  const LoadStatements run(app_.desktop);
  run([&] {
    const jet::Recordset employee = app_.CurrentDatabase.OpenRecordset(Query());
    loaded_ = !employee.Eof();
    E_Name.Text = loaded_ ? employee.Text("E_Name") : "";
  });
}

void KVI_Example::EndVisit() {
  E_Name.Text = "";
  loaded_ = false;
}

void KVI_Example::save_changes() {
  if (!CheckAccess(app_.AccessString, kUtilityModule, kWriteAccess)) return SayReadOnly();
  if (!loaded_) return Inform("Employee record not found");
  const SaveEnd end = SaveRecord(app_.desktop, app_.CurrentDatabase, [&] {
    jet::Recordset employee = app_.CurrentDatabase.OpenRecordset(Query());
    employee.Edit();
    employee.Set("E_Name", E_Name.Text());
    employee.Update();
  });
  if (end == SaveEnd::Saved) Say("Employee " + code_ + " saved");
}

Layout KVI_Example::Arrange() {
  return Column({BannerLayout(), Actions({&save, &exit_lab}), Field("&Name:", E_Name, 3), Gap()});
}

}  // namespace kvi
