#pragma once

#include <string>

struct sqlite3_file;

namespace kvi::jet {

enum class FileKind { Database, Jet, Other };

// What the first bytes of an open file say that it is. Read through the engine's own handle: were
// the file opened a second time, closing it would drop every lock this process has on it.
FileKind RecogniseFile(sqlite3_file* file);

}  // namespace kvi::jet
