#pragma once

#include <string>
#include <utility>

#include "platform/Screen.h"

namespace kvi::test {

// A screen with nothing but its name, to put single controls on.
class BareScreen : public Screen {
 public:
  explicit BareScreen(std::string name = "KVI_Bare") : Screen(std::move(name)) {}
  Layout Arrange() override { return {}; }
};

}  // namespace kvi::test
