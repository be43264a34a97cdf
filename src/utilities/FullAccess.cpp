#include "utilities/FullAccess.h"

#include "frame/Application.h"
#include "security/CheckAccess.h"

namespace kvi {

bool HasFullAccess(Application& app) {
  if (CheckAccess(app.AccessString, kUtilityModule, kWriteAccess)) return true;
  app.desktop.MsgBox(
      {.text = "Full Access to Utilities required for this option.\n\nChanges NOT Saved"});
  return false;
}

}  // namespace kvi
