#pragma once

#include <array>
#include <string>

#include "frame/KviScreen.h"

namespace kvi {

// Edits or adds one vendor. It is saved under the name that stands in its box, whatever the name
// was: another name makes another vendor, or writes over the one that has it, and no part follows.
class KVI_VendorDetail : public KviScreen {
 public:
  explicit KVI_VendorDetail(Application& app);

  // Shows the vendor, or an empty one for "", until the user leaves; gives the name that stood in
  // its box then.
  std::string OpenVendor(const std::string& name);

  void Activate() override;
  void Exit() override;
  Layout Arrange() override;

  void SaveVendor();

  TextBox VendorName{*this, "VendorName"};
  TextBox Address{*this, "Address"};
  TextBox City{*this, "City"};
  TextBox State{*this, "State"};
  TextBox ZipCode{*this, "ZipCode"};
  TextBox VendorCode{*this, "VendorCode"};
  TextBox VendorID{*this, "VendorID"};
  TextBox Contact1{*this, "Contact1"};
  TextBox Phone1{*this, "Phone1"};
  TextBox Contact2{*this, "Contact2"};
  TextBox Phone2{*this, "Phone2"};
  TextBox Fax{*this, "Fax"};
  TextBox Email{*this, "Email"};
  TextBox VendorURL{*this, "VendorURL"};
  TextBox VendorUserName{*this, "VendorUserName"};
  ActionLabel save_lab{*this, "save_lab", "&Save"};
  ActionLabel exit_lab{*this, "exit_lab", "E&xit"};
  StatusBar StatusBar1{*this, "StatusBar1", 2};

 private:
  struct Entry {
    TextBox* box;
    const char* field;
  };

  void ShowVendor();
  // True when the name was a new one.
  bool Write(const std::string& name);
  void TellSaved(const std::string& name, bool added);

  const std::array<Entry, 15> entries_;  // in the order of the save
  std::string vendor_;                   // as loaded or saved last; "" for a new one
  bool changed_ = false;
};

}  // namespace kvi
