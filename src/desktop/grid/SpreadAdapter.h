#pragma once

#include "desktop/controls/ControlAdapter.h"
#include "platform/Spread.h"

namespace kvi {

class SpreadView;

class SpreadAdapter : public ControlAdapter {
 public:
  SpreadAdapter(Spread& grid, WindowContext& context);
  void FinishEditing() override;
  void Release() override;

 protected:
  void ShowState() override;
  void Show(Property property) override;
  void ShowVisible() override;

 private:
  Spread& grid_;
  SpreadView& shown_;
  bool hadFocus_ = false;
};

}  // namespace kvi
