#pragma once

#include <string>

namespace kvi {

class Application;

// Raises 3343 for a file that is damaged or is no database of this program, and as Database::Open.
void RequireInventoryFile(const std::string& path);

// Puts the content of a copy into the open database, which is copied first, and opens it anew with
// all that was loaded from it. Tells what fails; false when nothing was changed.
[[nodiscard]] bool RestoreDatabase(Application& app, const std::string& path);

}  // namespace kvi
