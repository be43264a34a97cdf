#include "jet/postgres/PostgresIndexes.h"

#include "base/Text.h"

namespace kvi::jet {
namespace {

constexpr char kUnique = '!';

}  // namespace

std::string IndexesAsText(const std::vector<IndexDef>& indexes) {
  std::string text;
  for (const IndexDef& index : indexes) {
    if (index.Unique) text += kUnique;
    for (const std::string& column : index.Columns) text += column + '\t';
    text.back() = '\n';
  }
  return text;
}

std::vector<IndexDef> IndexesOfText(std::string_view text) {
  std::vector<IndexDef> indexes;
  while (!text.empty()) {
    std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(text.size(), line.size() + 1));
    IndexDef index;
    index.Unique = line.starts_with(kUnique);
    if (index.Unique) line.remove_prefix(1);
    for (std::size_t end = 0; end != line.npos; line.remove_prefix(end + 1)) {
      end = line.find('\t');
      index.Columns.emplace_back(line.substr(0, end));
      if (end == line.npos) break;
    }
    indexes.push_back(std::move(index));
  }
  return indexes;
}

IndexDef IndexOfSql(std::string_view sql) {
  IndexDef index;
  index.Unique = sql.starts_with("CREATE UNIQUE");
  // The table's name stands in brackets, and the columns behind it.
  std::size_t at = sql.find('(', sql.find(']', sql.find(" ON ")));
  int depth = 0;
  std::string column;
  for (++at; at + 1 < sql.size(); ++at) {
    depth += sql[at] == '(' ? 1 : sql[at] == ')' ? -1 : 0;
    if (sql[at] != ',' || depth > 0) {
      column += sql[at];
      continue;
    }
    index.Columns.push_back(Trim(column));
    column.clear();
  }
  index.Columns.push_back(Trim(column));
  return index;
}

}  // namespace kvi::jet
