#include "jet/engine/ReplaceContent.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <vector>

#include "jet/engine/FieldRules.h"
#include "jet/engine/StatementRun.h"

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
std::vector<Part> Parts(Connection& connection, const std::string& file, const char* type) {
  std::vector<Part> parts;
  StatementRun run(connection,
                   "SELECT name,sql FROM " + file +
                       ".sqlite_master WHERE type=?1 AND sql IS NOT NULL AND rootpage>0 "
                       "AND substr(name,1,7)<>'sqlite_' ORDER BY rowid");
  run.Bind(1, std::string_view(type));
  while (run.Step()) parts.push_back({std::string(run.Text(0)), std::string(run.Text(1))});
  return parts;
}

}  // namespace

SourceFile::SourceFile(Connection& connection, const std::string& path) : connection_(connection) {
  StatementRun attach(connection_, "ATTACH ?1 AS source");
  const std::string address = ReadOnlyAddress(path);
  attach.Bind(1, std::string_view(address));
  attach.Step();
}

SourceFile::~SourceFile() {
  connection_.TryRun("DETACH source");
}

// The tables come empty with their indexes first: rows that meet the same table and the same
// indexes are taken over as they lie in the file.
void ReplaceContent(Connection& connection, std::uint32_t generation) {
  for (const Part& table : Parts(connection, "main", "table"))
    connection.Run("DROP TABLE main." + Bracketed(table.Name));
  const std::vector<Part> tables = Parts(connection, "source", "table");
  for (const Part& table : tables) connection.Run(table.Definition);
  for (const Part& index : Parts(connection, "source", "index")) connection.Run(index.Definition);
  for (const Part& table : tables) {
    const std::string name = Bracketed(table.Name);
    connection.Run("INSERT INTO main." + name + " SELECT * FROM source." + name);
  }
  connection.Run("PRAGMA main.user_version=" + std::to_string(generation));
}

}  // namespace kvi::jet
