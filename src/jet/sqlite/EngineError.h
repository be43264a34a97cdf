#pragma once

#include <string>

struct sqlite3;

namespace kvi::jet {

// Another desk holds a lock.
bool IsBusy(int code);
// Of an error number of the system.
bool IsFullDisk(int systemError);

// The engine's answers as classic errors. `code` is what the failing call gave; the connection
// tells the rest.
[[noreturn]] void RaiseEngineError(sqlite3* connection, int code);

// The same for a file that is just being opened: a lock means that somebody has it exclusively, and
// a broken-off save that cannot be undone is told as such.
[[noreturn]] void RaiseOpenError(sqlite3* connection, int code, const std::string& path);

}  // namespace kvi::jet
