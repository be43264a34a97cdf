#pragma once

#include <array>
#include <optional>
#include <string>

#include "frame/KviScreen.h"

namespace kvi {

// One employee with its rights. The rights are kept, and nothing asks them yet: who may write is
// decided by the program's command line. An employee is found by the number of its code, which
// cannot become another one.
class KVI_EmployeeSetupDetail : public KviScreen {
 public:
  explicit KVI_EmployeeSetupDetail(Application& app);

  // Each shows the screen until the user leaves.
  void OpenNew();
  void OpenEmployee(const std::string& code);

  void Activate() override;
  Layout Arrange() override;

  ActionLabel save{*this, "save", "&Save"};
  ActionLabel print_lab{*this, "print_lab", "&Print"};
  ActionLabel exit_lab{*this, "exit_lab", "E&xit"};
  TabStrip SSTab1{*this, "SSTab1", {"Access Information", "Access Rights"}};
  TextBox E_Code{*this, "E_Code"};
  TextBox E_Name{*this, "E_Name"};
  CheckBox ReadInv{*this, "ReadInv", ""};
  CheckBox WriteInv{*this, "WriteInv", ""};
  CheckBox ReadRecipe{*this, "ReadRecipe", ""};
  CheckBox WriteRecipe{*this, "WriteRecipe", ""};
  CheckBox ReadPSO{*this, "ReadPSO", ""};
  CheckBox WritePSO{*this, "WritePSO", ""};
  CheckBox ReadSpeedy{*this, "ReadSpeedy", ""};
  CheckBox WriteSpeedy{*this, "WriteSpeedy", ""};
  CheckBox ReadPrint{*this, "ReadPrint", ""};
  CheckBox WritePrint{*this, "WritePrint", ""};
  CheckBox WriteUtil{*this, "WriteUtil", ""};
  ActionLabel Label7{*this, "Label7", "Select &all"};
  ActionLabel Label5{*this, "Label5", "&Unselect all"};

 protected:
  void Prepare() override { SSTab1.Tab = 0; }

 private:
  struct Right {
    const char* label;
    CheckBox* read;  // null where there is none
    CheckBox* write;
  };

  void Couple(const Right& right);
  void TickAll(bool on);
  void ShowEmployee();
  void CheckCode();
  void SaveEmployee();
  // Why the employee was not written; "" when it was.
  std::string Write();

  const std::array<Right, 6> rights_;  // in the order of the save
  std::array<CheckBox*, 11> boxes_{};  // the same, each by itself; a box is named as its field
  std::optional<std::string> number_;  // of the code that is edited; none for a new one
};

}  // namespace kvi
