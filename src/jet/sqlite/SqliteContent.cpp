// A database file whose content takes the place of another one's.
#include <array>
#include <cstdio>
#include <filesystem>
#include <vector>

#include "jet/engine/FieldRules.h"
#include "jet/engine/StatementRun.h"
#include "jet/sqlite/SqliteConnection.h"

namespace kvi::jet {

namespace {

// The file's path as the address of a file that is only read.
std::string ReadOnlyAddress(const std::string& path) {
  std::string address = "file://";
  for (const char letter : std::filesystem::absolute(path).string()) {
    if (letter == '%' || letter == '?' || letter == '#') {
      std::array<char, 4> code{};
      std::snprintf(code.data(), code.size(), "%%%02X", static_cast<unsigned>(letter));
      address += code.data();
    } else {
      address += letter;
    }
  }
  return address + "?mode=ro";
}

struct Part {
  std::string Name;
  std::string Definition;
};

// The tables, or the indexes, that somebody made; the engine makes the others by itself.
std::vector<Part> Parts(SqliteConnection& connection, const std::string& file, const char* type) {
  std::vector<Part> parts;
  StatementRun run(connection,
                   "SELECT name,sql FROM " + file +
                       ".sqlite_master WHERE type=?1 AND sql IS NOT NULL AND rootpage>0 "
                       "AND substr(name,1,7)<>'sqlite_' ORDER BY rowid");
  run.Bind(1, std::string_view(type));
  while (run.Step()) parts.push_back({std::string(run.Text(0)), std::string(run.Text(1))});
  return parts;
}

// The other file beside the open one, read and never written. It must be attached while no
// transaction is open.
class AttachedFile : public NewContent {
 public:
  AttachedFile(SqliteConnection& connection, const std::string& path) : connection_(connection) {
    StatementRun attach(connection_, "ATTACH ?1 AS source");
    const std::string address = ReadOnlyAddress(path);
    attach.Bind(1, std::string_view(address));
    attach.Step();
  }
  ~AttachedFile() override { connection_.TryRun("DETACH source"); }
  AttachedFile(const AttachedFile&) = delete;
  AttachedFile& operator=(const AttachedFile&) = delete;

  void PutIn(std::uint32_t generation) override;

 private:
  SqliteConnection& connection_;
};

// The tables come empty with their indexes first: rows that meet the same table and the same
// indexes are taken over as they lie in the file.
void AttachedFile::PutIn(std::uint32_t generation) {
  for (const Part& table : Parts(connection_, "main", "table"))
    connection_.Run("DROP TABLE main." + Bracketed(table.Name));
  const std::vector<Part> tables = Parts(connection_, "source", "table");
  for (const Part& table : tables) connection_.Run(table.Definition);
  for (const Part& index : Parts(connection_, "source", "index")) connection_.Run(index.Definition);
  for (const Part& table : tables) {
    const std::string name = Bracketed(table.Name);
    connection_.Run("INSERT INTO main." + name + " SELECT * FROM source." + name);
  }
  connection_.Run("PRAGMA main.user_version=" + std::to_string(generation));
}

}  // namespace

std::unique_ptr<NewContent> SqliteConnection::OpenContent(const std::string& path) {
  return std::make_unique<AttachedFile>(*this, path);
}

}  // namespace kvi::jet
