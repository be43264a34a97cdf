#pragma once

#include <string>

#include "frame/KviScreen.h"

namespace kvi {

// The screen that docs/adding-a-screen.md shows: the name of one employee.
class KVI_Example : public KviScreen {
 public:
  explicit KVI_Example(Application& app);

  // Shows the employee until the user leaves.
  void OpenEmployee(const std::string& code);

  void Activate() override;   // each time it comes to the front
  void EndVisit() override;   // whenever it goes away
  Layout Arrange() override;  // where the controls stand

  TextBox E_Name{*this, "E_Name"};
  ActionLabel save{*this, "save", "&Save"};
  ActionLabel exit_lab{*this, "exit_lab", "E&xit"};
  StatusBar StatusBar1{*this, "StatusBar1", 2};

 private:
  std::string Query() const;
  void save_changes();

  std::string code_;
  bool loaded_ = false;
};

}  // namespace kvi
