#pragma once

#include <functional>

#include "frame/Application.h"
#include "platform/Controls.h"
#include "platform/Screen.h"

namespace kvi {

// The first start of a desk, before there is anything to open: what it shall work on. Whatever is
// chosen sets up the program's folder; leaving without a choice leaves nothing behind.
class Welcome : public Screen {
 public:
  explicit Welcome(Application& app);

  // Until something is chosen; false when nothing was. `fill` makes the sample.
  bool AskHowToStart(std::function<void(jet::Database&)> fill);
  // The user has data of an older program to bring in.
  bool HasOldData() const { return hasOldData_; }

  void Load() override { CenterForm(); }
  Layout Arrange() override;

  Label greeting{*this, "greeting", "Welcome to Kestvar Inventory"};
  Label question{*this, "question", "What would you like to begin with?"};
  Button empty{*this, "empty", "An &empty stockroom"};
  Button sample{*this, "sample", "A &sample stockroom, to look around"};
  Button shared{*this, "shared", "The stockroom of &another desk, on a shared folder..."};
  Button old{*this, "old", "&Data of an older program"};
  Button leave{*this, "leave", "E&xit"};

 private:
  void SetUp(const std::function<void(jet::Database&)>& fill);
  void OpenShared();

  Application& app_;
  std::function<void(jet::Database&)> fill_;
  bool isSetUp_ = false, hasOldData_ = false;
};

}  // namespace kvi
