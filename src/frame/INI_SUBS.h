#pragma once

#include <string>
#include <utility>
#include <vector>

namespace kvi {

class Application;

inline constexpr const char* kSuiteSection = "TARNWK";
inline constexpr const char* kOwnSection = "KestvarInventory";

// Reads TARNWK.INI (the suite's, never written) and KVI.INI into the application's state. Ends the
// process when TARNWK.INI has no section of its own; writes a KVI.INI of defaults when there is no
// valid one.
void ReadSettings(Application& app);

// Writes KVI.INI. Ends the process when it cannot be written.
void WriteSettings(Application& app);

// The keys and texts of a new KVI.INI, in the order of the file.
std::vector<std::pair<std::string, std::string>> DefaultSettings(const std::string& programFolder);

// The text up to the first NUL, trimmed.
std::string ClipToNul(const std::string& text);

}  // namespace kvi
