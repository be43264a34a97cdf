#include "start/Version.h"

#include "base/Number.h"

namespace kvi {

std::string VersionText() {
  return "Version " + Str(KVI_VERSION_MAJOR) + "." + Str(KVI_VERSION_MINOR) + "." +
         Str(KVI_VERSION_REVISION);
}

}  // namespace kvi
