#pragma once

#include <string>

struct sqlite3_file;

namespace kvi::jet {

enum class FileKind { Database, Jet, Other };

// What the first bytes of an open file say that it is. Read through the engine's own handle: were
// the file opened a second time, closing it would drop every lock this process has on it.
FileKind RecogniseFile(sqlite3_file* file);

// Whether the file is shorter than its header says: a copy that was broken off. Exact while a read
// lock is held. (The engine itself notices whole pages that are missing, not a part of one.)
bool IsCutOff(sqlite3_file* file);

}  // namespace kvi::jet
