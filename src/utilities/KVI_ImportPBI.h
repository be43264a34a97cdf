#pragma once

#include <functional>
#include <string>

#include "frame/KviScreen.h"

namespace kvi {

// Brings in the data of two older products, in the place of what the database
// holds. Plainbook's has our layout and comes whole; that of Millrace Works is
// copied table by table. Nothing of ours goes before the chosen file is read
// and found good. Utilities opens it.
class KVI_ImportPBI : public KviScreen {
 public:
  explicit KVI_ImportPBI(Application& app);

  Layout Arrange() override;

  Label Label9{*this, "Label9"};
  OptionButton i_pbi{*this, "i_pbi", "I am importing from &Plainbook Inventory"};
  OptionButton i_mrw{*this, "i_mrw", "I am importing from &Millrace Works Inventory"};
  Label Label1{*this, "Label1"};
  TextBox MDBLabel{*this, "MDBLabel"};
  ActionLabel save{*this, "save", "&Browse"};
  ActionLabel Label12{*this, "Label12", "&Import"};
  ActionLabel Label11{*this, "Label11", "&Cancel/Exit"};
  Label Label2{*this, "Label2",
               "The maker does the conversion on request: please call your dealer."};

 protected:
  void Prepare() override;

 private:
  void ChoosePlainbook();
  void ChooseMillrace();
  void Browse();
  void Import();
  bool ImportMillrace();
  bool ImportPlainbook();
  void KeepProtocol(const jet::Conversion& protocol);
  // Runs what reads the chosen file, with the password that it asks for. False
  // where the user gives none.
  bool WithPassword(const std::function<void(const std::string& password)>& read);
};

}  // namespace kvi
