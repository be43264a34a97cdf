#pragma once

#include <string>

#include "jet/Database.h"

namespace kvi {

// Copies a part to a new one with " DUP" behind its number and its name. The level is copied too,
// so the same stock stands twice; scan number, corporate flag, prices, vendor's choice and yield
// stay empty. False when the duplicate stands already. Raises 3021 when the part is gone.
bool DuplicateItem(jet::Database& database, const std::string& number);

}  // namespace kvi
