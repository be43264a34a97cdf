#include "jet/sqlite/JetFile.h"

#include <sqlite3.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>

#include "jet/Database.h"

namespace kvi::jet {
namespace {

using Header = std::array<char, 100>;

// A file shorter than that comes back filled up with zeros.
Header ReadHeader(sqlite3_file* file) {
  Header bytes{};
  file->pMethods->xRead(file, bytes.data(), static_cast<int>(bytes.size()), 0);
  return bytes;
}

std::int64_t NumberAt(const Header& header, std::size_t at, std::size_t size) {
  std::int64_t number = 0;
  for (const std::size_t end = at + size; at < end; ++at)
    number = number << 8 | static_cast<unsigned char>(header[at]);
  return number;
}

}  // namespace

FileKind RecogniseFile(sqlite3_file* file) {
  const Header bytes = ReadHeader(file);
  const std::string_view header(bytes.data(), bytes.size());
  if (header.starts_with(std::string_view("SQLite format 3\0", 16))) return FileKind::Database;
  const std::string_view name = header.substr(4);
  if (name.starts_with("Standard Jet DB") || name.starts_with("Standard ACE DB"))
    return FileKind::Jet;
  return FileKind::Other;
}

bool IsCutOff(sqlite3_file* file) {
  const Header header = ReadHeader(file);
  // The count of pages counts only where the writer that last changed the file knew of it.
  if (NumberAt(header, 24, 4) != NumberAt(header, 92, 4)) return false;
  const std::int64_t field = NumberAt(header, 16, 2), pageSize = field == 1 ? 65536 : field;
  sqlite3_int64 size = 0;
  file->pMethods->xFileSize(file, &size);
  return size < NumberAt(header, 28, 4) * pageSize;
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
