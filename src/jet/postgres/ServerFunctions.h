#pragma once

#include <string>

namespace kvi::jet {

// The version of what ServerFunctions() makes; a database of another one is not used.
inline constexpr int kServerVersion = 1;

// SQL that makes schema kvi: the dialect's functions under their names in small letters, the
// domains for field types that the server has not, and the table kvi.settings ("version",
// "look_ms"). To be run in one transaction, in a database of UTF-8. A function that refuses its
// arguments raises SQLSTATE KVI01, its message in the form of JetFunctions.h.
std::string ServerFunctions();

}  // namespace kvi::jet
