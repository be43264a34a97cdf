#pragma once

#include "items/ItemDetailScreen.h"

namespace kvi {

// The detail screen on one page, the alternate view of the preferences.
class KVI_InventoryDetail1Screen : public ItemDetailScreen {
 public:
  explicit KVI_InventoryDetail1Screen(Application& app);

  Layout Arrange() override;
};

}  // namespace kvi
