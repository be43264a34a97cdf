#pragma once

#include <array>
#include <memory>

#include "base/Counter16.h"
#include "frame/KviScreen.h"

namespace kvi {

// Asks for an employee's code at the start, when security is on. It leaves CurrentEmployeeCode and
// CurrentEmployeeName: -999 when nobody was found or the user cancelled, untouched when the window
// was closed. Attempts are not counted: a wrong code ends the process.
class KVI_SecurityCheckpoint : public KviScreen {
 public:
  explicit KVI_SecurityCheckpoint(Application& app);

  void Activate() override;
  Layout Arrange() override;

  TextBox man_in{*this, "man_in"};
  std::array<std::unique_ptr<Button>, 10> digit;
  Button Command1{*this, "Command1", "Ok"};
  Button clear_button{*this, "clear_button", "Clear"};
  Button cancel_button{*this, "cancel_button", "Cancel"};

 private:
  void Clear();
  void EnterDigit(int number);
  void Cancel();
  void Submit();

  Counter16 entered_;  // digits by the pad; typed ones do not count
};

}  // namespace kvi
