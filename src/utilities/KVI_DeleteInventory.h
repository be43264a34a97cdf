#pragma once

#include "frame/KviScreen.h"

namespace kvi {

// Removes the parts of the current profit center, all or the inactive ones. Utilities opens it.
class KVI_DeleteInventory : public KviScreen {
 public:
  explicit KVI_DeleteInventory(Application& app);

  void Activate() override;
  void EndVisit() override { mode_ = kLeave; }
  void Exit() override;
  Layout Arrange() override;

  Label warning{*this, "warning",
                "WARNING!!! This option will permanently delete items from the inventory "
                "database."};
  Label affected{*this, "affected"};
  ActionLabel dai{*this, "dai", "Delete &all items"};
  ActionLabel diio{*this, "diio", "Delete &inactive items only"};
  ActionLabel exit_lab{*this, "exit_lab", "&Cancel/exit"};

 private:
  enum Mode { kLeave = 2, kAllItems = 6, kInactiveItems = 7 };

  // The end of a statement that means what a mode removes.
  std::string PartsOf(Mode mode) const;
  // Does what `mode_` says.
  void DeleteInventory();

  Mode mode_ = kLeave;
};

}  // namespace kvi
