#include "security/CheckAccess.h"

namespace kvi {

bool CheckAccess(std::string_view AccessString, int /*module*/, int level) {
  constexpr std::size_t kWriteRight = 2;
  if (level == kReadAccess) return true;
  if (level != kWriteAccess) return false;
  return AccessString.size() > kWriteRight && AccessString[kWriteRight] == 'W';
}

}  // namespace kvi
