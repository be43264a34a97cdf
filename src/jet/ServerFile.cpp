#include <fstream>

#include "jet/Server.h"

namespace kvi::jet {

std::optional<std::string> ServerNamedIn(const std::string& path) {
  std::ifstream file(path);
  std::string first(kServerFileMark.size(), ' '), rest, conninfo;
  if (!file.read(first.data(), static_cast<std::streamsize>(first.size())) ||
      first != kServerFileMark)
    return std::nullopt;
  std::getline(file, rest);
  std::getline(file, conninfo);
  if (conninfo.ends_with('\r')) conninfo.pop_back();
  return conninfo;
}

}  // namespace kvi::jet
