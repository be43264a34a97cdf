#pragma once

#include "desktop/controls/ControlAdapter.h"
#include "platform/Spread.h"

namespace kvi {

class SpreadView;

class SpreadAdapter : public TypedAdapter<Spread, SpreadView> {
 public:
  SpreadAdapter(Spread& grid, ScreenWindow& window);
  void FinishEditing() override;
  void Release() override;

 protected:
  void ShowState() override;
  void Show(Property property) override;
  void ShowVisible() override;

 private:
  bool hadFocus_ = false;
};

}  // namespace kvi
