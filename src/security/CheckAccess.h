#pragma once

#include <string_view>

namespace kvi {

enum AccessModule {
  kInventoryModule = 1,
  kPartGroupModule = 2,
  kOrderModule = 3,
  kUpdateModule = 4,
  kUsageModule = 5,
  kReportModule = 6,
  kUtilityModule = 7,
};

enum AccessLevel { kReadAccess = 1, kWriteAccess = 2 };

// Whether the rights text allows the level. Reading is open to everybody; writing needs "W" as the
// third character. The module takes no part in the decision, and neither do the employees' stored
// rights: a launcher hands over one text for all modules.
bool CheckAccess(std::string_view AccessString, int module, int level);

}  // namespace kvi
