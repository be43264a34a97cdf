#pragma once

#include "frame/KviScreen.h"
#include "platform/Spread.h"

namespace kvi {

// The list of the employees, who sign in by their codes. A code is a number however it is written:
// "007" is 7, here as at the sign-in.
class KVI_EmployeeSetup : public KviScreen {
 public:
  explicit KVI_EmployeeSetup(Application& app);

  void Activate() override;
  Layout Arrange() override;

  // No control calls it. Rewrites the employees from the rows of the list, in their order, by the
  // first digit of each code and the number that each name begins with.
  void save_changes();

  Label Label1{*this, "Label1", "Double-Click below to view/modify settings:"};
  Spread Spread1{*this, "Spread1", 2};
  ActionLabel dai{*this, "dai", "&New"};
  ActionLabel remove{*this, "remove", "&Remove"};
  ActionLabel print_lab{*this, "print_lab", "&Print"};
  ActionLabel exit_lab{*this, "exit_lab", "E&xit"};
  StatusBar StatusBar1{*this, "StatusBar1", 2};

 protected:
  void Prepare() override;

 private:
  void FillList();
  void ShowPosition();
  void OpenEmployee(int row);
  void RemoveEmployee();
};

}  // namespace kvi
