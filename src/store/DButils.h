#pragma once

#include <optional>
#include <string>

#include "jet/Database.h"

namespace kvi {

// True for the numbers of the conditions in which another user holds a lock. Number 3000 stands for
// a list of the engine's own errors: its first entry decides.
bool IsLockError(int code, int firstOfErrorList = 0);

// The row of a part by its trimmed number, whatever its profit center. Nothing on any failure, and
// no message.
std::optional<jet::Recordset> OpenItemRecord(jet::Database& database, const std::string& inv_id);

}  // namespace kvi
