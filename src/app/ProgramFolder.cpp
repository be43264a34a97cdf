#include "ProgramFolder.h"

#include <cstdlib>
#include <filesystem>

namespace kvi {

namespace {

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

}  // namespace

std::string ProgramFolder() {
  namespace fs = std::filesystem;
  std::error_code ignored;
  const fs::path beside = fs::read_symlink("/proc/self/exe", ignored).parent_path();
  if (fs::exists(beside / "TARNWK.INI", ignored)) return beside.string();
  if (const std::string home = Environment("KVI_HOME"); !home.empty())
    return fs::absolute(home, ignored).string();
  const std::string data = Environment("XDG_DATA_HOME");
  const fs::path base =
      data.empty() ? fs::path(Environment("HOME")) / ".local/share" : fs::path(data);
  return (base / "kestvar-inventory").string();
}

}  // namespace kvi
