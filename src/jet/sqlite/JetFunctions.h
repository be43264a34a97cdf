#pragma once

#include <string_view>

struct sqlite3;

namespace kvi::jet {

// How the message of a function that failed begins; number and description stand behind it.
inline constexpr std::string_view kFunctionFailed = "function failed: ";

// Registers on a connection what the dialect needs of the engine: the collation JET1, jet_like
// (text, pattern) with Jet's wildcards, and the functions of JetFunctionTable.h that are not
// SQLite's own. trim() stays SQLite's, so that an index on it serves.
void RegisterJetFunctions(sqlite3* connection);

}  // namespace kvi::jet
