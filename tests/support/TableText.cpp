#include "support/TableText.h"

#include <sstream>
#include <vector>

#include "base/Text.h"

namespace kvi::test {
namespace {

std::vector<std::string> Cells(const std::string& line) {
  std::vector<std::string> cells;
  std::size_t start = 0;
  for (;;) {
    const std::size_t bar = line.find('|', start);
    cells.push_back(Trim(line.substr(start, bar - start)));
    if (bar == std::string::npos) return cells;
    start = bar + 1;
  }
}

Value Content(const std::string& cell) {
  const bool quoted = cell.size() >= 2 && cell.front() == '\'' && cell.back() == '\'';
  return quoted ? cell.substr(1, cell.size() - 2) : cell;
}

std::vector<std::string> FieldNames(const jet::Recordset& set, const std::string& fields) {
  std::vector<std::string> names;
  std::istringstream words(fields);
  for (std::string word; words >> word;) names.push_back(word);
  if (names.empty())
    for (const jet::FieldDef& field : set.Fields()) names.push_back(field.Name);
  return names;
}

}  // namespace

void FillTable(jet::Database& database, const std::string& table, const std::string& rows) {
  std::istringstream lines(rows);
  std::string line;
  std::getline(lines, line);
  const std::vector<std::string> fields = Cells(line);
  jet::Recordset set = database.OpenRecordset("SELECT * FROM [" + table + "];");
  jet::WriteBatch batch(database);
  while (std::getline(lines, line)) {
    const std::vector<std::string> cells = Cells(line);
    set.AddNew();
    for (std::size_t i = 0; i < fields.size() && i < cells.size(); ++i)
      if (!cells[i].empty()) set.Set(fields[i], Content(cells[i]));
    set.Update();
  }
}

std::string RowsText(jet::Recordset& set, const std::string& fields) {
  std::string text;
  const std::vector<std::string> names = FieldNames(set, fields);
  for (; !set.Eof(); set.MoveNext()) {
    std::string line;
    for (const std::string& name : names) {
      if (&name != &names.front()) line += "|";
      line += set[name].IsNull() ? "Null" : set.Text(name);
    }
    text += line + "\n";
  }
  return text;
}

}  // namespace kvi::test
