#pragma once

#include "frame/KviScreen.h"

namespace kvi {

// Which of a part's three vendors a report by vendor looks at, and which vendor. It has no logic of
// its own: the reports read its controls.
class KVI_ChooseVendors : public KviScreen {
 public:
  explicit KVI_ChooseVendors(Application& app);

  Layout Arrange() override;

  ComboBox where1{*this, "where1"};
  OptionButton u_v1{*this, "u_v1", "Use Vendor 1"};
  OptionButton u_v2{*this, "u_v2", "Use Vendor 2"};
  OptionButton u_v3{*this, "u_v3", "Use Vendor 3"};
  ActionLabel exit_lab{*this, "exit_lab", "&Select and Exit"};
};

}  // namespace kvi
