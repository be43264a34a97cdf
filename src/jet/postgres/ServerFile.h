#pragma once

#include <optional>
#include <string>

namespace kvi::jet {

// A small file in the database's place that names one on a server: two lines, the second of which
// are the words with which libpq connects. It holds no password.
std::optional<std::string> ReadServerFile(const std::string& path);
void WriteServerFile(const std::string& path, const std::string& address);

}  // namespace kvi::jet
