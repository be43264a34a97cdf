#include "jet/JetFile.h"

#include <sqlite3.h>

#include <array>
#include <memory>
#include <string_view>

#include "jet/Database.h"

namespace kvi::jet {

FileKind RecogniseFile(sqlite3_file* file) {
  std::array<char, 32> bytes{};
  // A file shorter than that comes back filled up with zeros, and is neither.
  file->pMethods->xRead(file, bytes.data(), static_cast<int>(bytes.size()), 0);
  const std::string_view header(bytes.data(), bytes.size());
  if (header.starts_with(std::string_view("SQLite format 3\0", 16))) return FileKind::Database;
  const std::string_view name = header.substr(4);
  if (name.starts_with("Standard Jet DB") || name.starts_with("Standard ACE DB"))
    return FileKind::Jet;
  return FileKind::Other;
}

bool IsJetFile(const std::string& path) {
  sqlite3* opened = nullptr;
  const int code = sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READONLY, nullptr);
  const std::unique_ptr<sqlite3, int (*)(sqlite3*)> connection(opened, sqlite3_close);
  if (code != SQLITE_OK) return false;
  sqlite3_file* file = nullptr;
  sqlite3_file_control(opened, "main", SQLITE_FCNTL_FILE_POINTER, &file);
  return file && file->pMethods && RecogniseFile(file) == FileKind::Jet;
}

}  // namespace kvi::jet
