#pragma once

#include <functional>
#include <vector>

#include "frame/Application.h"
#include "platform/Controls.h"
#include "platform/Screen.h"
#include "store/SetUpFolder.h"

namespace kvi {

// The first start of a desk, before there is anything to open: what it shall work on. Whatever is
// chosen sets up the program's folder; leaving without a choice leaves nothing behind.
class Welcome : public Screen {
 public:
  explicit Welcome(Application& app);

  // Until something is chosen; false when nothing was. `fill` makes the sample.
  bool AskHowToStart(std::function<void(jet::Database&)> fill);
  // The user has data of an older product to bring in.
  bool HasOldData() const { return hasOldData_; }
  // The stockroom chosen could not be opened: the next start asks again. (Those made here stay.)
  void TakeBack();

  void Load() override { CenterForm(); }
  Layout Arrange() override;

  Label greeting{*this, "greeting", "Welcome to Kestvar Inventory"};
  Label question{*this, "question", "What would you like to begin with?"};
  Button empty{*this, "empty", "An &empty stockroom"};
  Button sample{*this, "sample", "A &sample stockroom, to look around"};
  Button shared{*this, "shared",
                "One that stands &already, of another desk or the older program..."};
  Button old{*this, "old", "&Data of Plainbook Inventory or Millrace Works"};
  Button leave{*this, "leave", "E&xit"};

 private:
  void SetUp(const std::function<void(jet::Database&)>& fill);
  void OpenShared();

  Application& app_;
  std::function<void(jet::Database&)> fill_;
  std::vector<SetUpFile> settingsOfDesk_;
  bool isSetUp_ = false, hasOldData_ = false;
};

}  // namespace kvi
