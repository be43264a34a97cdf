#pragma once

#include "items/ItemDetailScreen.h"

namespace kvi {

// The detail screen on four tabs. It exists from the start on, since the drop lists of its combos
// are kept filled, and since the summary's New blanks it even where the other layout is shown.
class KVI_InventoryDetail : public ItemDetailScreen {
 public:
  explicit KVI_InventoryDetail(Application& app);

  Layout Arrange() override;

  TabStrip SSTab1{
      *this,
      "SSTab1",
      {"Part Information", "Part Usage && Cost Info.", "Vendor Information", "Picture"}};

 protected:
  void Prepare() override;

 private:
  Layout InformationPanel();
  Layout UsagePanel();
  Layout VendorPanel();
  Layout PicturePanel();
};

}  // namespace kvi
