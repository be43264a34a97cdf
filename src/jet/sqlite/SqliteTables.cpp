#include "jet/sqlite/SqliteTables.h"

#include "base/Text.h"
#include "jet/engine/FieldRules.h"
#include "jet/engine/StatementRun.h"

namespace kvi::jet {
namespace {

constexpr std::string_view kTableNames =
    "SELECT name FROM sqlite_master WHERE type='table' AND substr(name,1,7)<>'sqlite_' "
    "ORDER BY rowid";

}  // namespace

std::vector<std::string> SqliteConnection::TableNames() {
  std::vector<std::string> names;
  StatementRun run(*this, kTableNames);
  while (run.Step()) names.emplace_back(run.Text(0));
  return names;
}

std::shared_ptr<StoredTable> SqliteConnection::ReadTable(std::string_view table) {
  auto stored = std::make_shared<StoredTable>();
  StatementRun kind(*this,
                    "SELECT name,wr FROM pragma_table_list(?1) WHERE schema='main' AND "
                    "type='table'");
  kind.Bind(1, table);
  if (!kind.Step()) return nullptr;
  stored->Name = kind.Text(0);
  if (kind.Whole(1) == 0) stored->Key = "rowid";
  StatementRun columns(*this, "SELECT name,type FROM pragma_table_info(?1)");
  columns.Bind(1, table);
  while (columns.Step()) {
    const std::string_view name = columns.Text(0);
    if (EqualsNoCase(name, "_rid")) {
      stored->Key = "_rid";
    } else if (EqualsNoCase(name, "_ver")) {
      stored->Versioned = true;
    } else {
      stored->Fields.push_back(FieldOfColumn(name, columns.Text(1)));
    }
  }
  return stored;
}

void SqliteConnection::AppendField(const StoredTable& table, const FieldDef& field) {
  Run("ALTER TABLE " + Bracketed(table.Name) + " ADD COLUMN " + ColumnDefinition(field));
}

void CreateTable(SqliteConnection& connection, const TableDef& table) {
  const std::string name = Bracketed(table.Name);
  // AUTOINCREMENT: the number of a deleted row must never come back. A desk that still has the old
  // row in its set would take the new one for it, and write into the wrong part.
  // (_ver is read with every row, and what stands first in a row is read cheapest.)
  std::string sql = "CREATE TABLE " + name +
                    "(_rid INTEGER PRIMARY KEY AUTOINCREMENT,_ver INTEGER NOT NULL DEFAULT 1";
  for (const FieldDef& field : table.Fields) sql += "," + ColumnDefinition(field);
  connection.Run(sql + ")");
  int number = 0;
  for (const IndexDef& index : table.Indexes) CreateIndex(connection, table.Name, index, ++number);
}

void CreateIndex(SqliteConnection& connection, const std::string& table, const IndexDef& index,
                 int number) {
  std::string columns;
  for (const std::string& column : index.Columns) {
    if (!columns.empty()) columns += ",";
    columns += column;
  }
  connection.Run((index.Unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") +
                 Bracketed(table + "_" + std::to_string(number)) + " ON " + Bracketed(table) + "(" +
                 columns + ")");
}

}  // namespace kvi::jet
