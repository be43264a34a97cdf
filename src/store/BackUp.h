#pragma once

#include <string>

namespace kvi {

class Application;

// Copies the database into the folder `backups` beside it, before an act that cannot be undone and
// after which the copy is named. False when it could not be copied: then the user was told, and the
// act must not be done.
[[nodiscard]] bool BackUpBefore(Application& app, const std::string& act);

}  // namespace kvi
