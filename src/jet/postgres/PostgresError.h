#pragma once

#include "jet/postgres/PostgresLine.h"

namespace kvi::jet {

// The server's answer as a classic error: 3260 for a lock, 3151 for the line.
[[noreturn]] void RaiseServerError(const ServerFailure& failure);

}  // namespace kvi::jet
