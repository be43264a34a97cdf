#pragma once

#include "frame/KviScreen.h"
#include "platform/Spread.h"
#include "store/BackUpFiles.h"

namespace kvi {

// The copies of the database, the newest first, and the way back to one of them. A restore takes
// the place of everything in the database, for all desks, after a copy of what stands.
class KVI_Backups : public KviScreen {
 public:
  explicit KVI_Backups(Application& app);

  void Activate() override;
  Layout Arrange() override;

  // Asks what the copy is for, and makes it.
  void BackUpNow();

  Label Label1{*this, "Label1"};
  Spread Spread1{*this, "Spread1", 4};
  ActionLabel back_up{*this, "back_up", "&Back up now..."};
  ActionLabel restore{*this, "restore", "&Restore"};
  ActionLabel browse{*this, "browse", "Restore a &file..."};
  ActionLabel exit_lab{*this, "exit_lab", "E&xit"};
  StatusBar StatusBar1{*this, "StatusBar1", 2};

 protected:
  void Prepare() override;

 private:
  void FillList();
  void ShowPosition();
  void RestoreRow();
  void RestoreFile();
  void AskToRestore(const std::string& path, const std::string& what);

  std::vector<BackUpFile> files_;
};

}  // namespace kvi
