#pragma once

#include <string>

#include "jet/engine/Connection.h"

namespace kvi::jet {

// Copies the content of the open file, as it is at one moment, into a new one. Raises as
// Database::CopyTo.
void CopyDatabase(Connection& from, const std::string& path);

}  // namespace kvi::jet
