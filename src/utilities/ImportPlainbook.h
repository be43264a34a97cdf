#pragma once

#include <string>

#include "jet/Conversion.h"
#include "jet/Database.h"
#include "platform/Progress.h"

namespace kvi {

// Makes a database of ours out of a Plainbook one, which has our layout: a real
// Jet file, or one of our own kind. Raises 3343 for a file that is none of
// these, and as jet::ConvertOldFile.
jet::Conversion ConvertPlainbook(const std::string& from, const std::string& password,
                                 const std::string& to, Progress& progress);

// Copies the open database to KV_Inventory_Backup.MDB beside it, over an
// earlier one only when the copy is whole. Raises as Database::CopyTo.
void BackUpForPlainbook(jet::Database& database);

}  // namespace kvi
