#pragma once

#include "frame/KviScreen.h"

namespace kvi {

// Asks for the path of the data file by hand. The answer goes into the application's DataFilePath
// and DataFileCancelled. No screen opens it today: the location comes from DatabaseDirectory.
class KVI_GetILocation : public KviScreen {
 public:
  explicit KVI_GetILocation(Application& app);

  void Exit() override { Answer(true); }
  Layout Arrange() override;

  TextBox txtPath{*this, "txtPath"};
  ActionLabel save{*this, "save", "&Browse"};
  ActionLabel Label12{*this, "Label12", "&Ok-connect"};
  ActionLabel Label11{*this, "Label11", "&Cancel/Exit"};

 protected:
  void Prepare() override;

 private:
  void Browse();
  void Answer(bool cancelled);
};

}  // namespace kvi
