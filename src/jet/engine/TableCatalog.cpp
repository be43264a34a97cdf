#include "jet/engine/TableCatalog.h"

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "jet/engine/FieldRules.h"
#include "jet/engine/StatementRun.h"

namespace kvi::jet {
namespace {

constexpr std::string_view kTableNames =
    "SELECT name FROM sqlite_master WHERE type='table' AND substr(name,1,7)<>'sqlite_' "
    "ORDER BY rowid";

}  // namespace

std::shared_ptr<StoredTable> TableCatalog::Find(std::string_view table) {
  std::string name = UCase(table);
  if (const auto found = tables_.find(name); found != tables_.end()) return found->second;
  std::shared_ptr<StoredTable> read = Read(table);
  if (!read) return nullptr;
  std::shared_ptr<std::uint64_t>& writes = writes_[name];
  if (!writes) writes = std::make_shared<std::uint64_t>(0);
  read->Writes = writes;
  return tables_.emplace(std::move(name), std::move(read)).first->second;
}

std::shared_ptr<StoredTable> TableCatalog::Read(std::string_view table) {
  auto stored = std::make_shared<StoredTable>();
  StatementRun kind(connection_,
                    "SELECT name,wr FROM pragma_table_list(?1) WHERE schema='main' AND "
                    "type='table'");
  kind.Bind(1, table);
  if (!kind.Step()) return nullptr;
  stored->Name = kind.Text(0);
  if (kind.Whole(1) == 0) stored->Key = "rowid";
  StatementRun columns(connection_, "SELECT name,type FROM pragma_table_info(?1)");
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
  SetDefaults(*stored);
  return stored;
}

void TableCatalog::UseDefaultsOf(const std::vector<TableDef>& tables) {
  for (const TableDef& table : tables)
    for (const FieldDef& field : table.Fields)
      if (!field.Default.IsNull()) defaults_[UCase(table.Name)].push_back(field);
  Forget();
}

void TableCatalog::SetDefaults(StoredTable& table) const {
  const auto found = defaults_.find(UCase(table.Name));
  if (found == defaults_.end()) return;
  for (const FieldDef& known : found->second)
    for (FieldDef& field : table.Fields)
      if (EqualsNoCase(field.Name, known.Name)) field.Default = known.Default;
}

std::vector<TableDef> TableCatalog::Tables() {
  std::vector<std::string> names;
  {
    StatementRun run(connection_, kTableNames);
    while (run.Step()) names.emplace_back(run.Text(0));
  }
  std::vector<TableDef> tables;
  for (const std::string& name : names)
    if (const auto stored = Find(name)) tables.push_back({stored->Name, stored->Fields, {}});
  return tables;
}

void TableCatalog::CreateTable(Connection& connection, const TableDef& table) {
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

void TableCatalog::CreateIndex(Connection& connection, const std::string& table,
                               const IndexDef& index, int number) {
  std::string columns;
  for (const std::string& column : index.Columns) {
    if (!columns.empty()) columns += ",";
    columns += column;
  }
  connection.Run((index.Unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") +
                 Bracketed(table + "_" + std::to_string(number)) + " ON " + Bracketed(table) + "(" +
                 columns + ")");
}

void TableCatalog::AppendField(std::string_view table, const FieldDef& field) {
  const auto stored = Find(table);
  if (!stored) throw RunTimeError(3265, DescriptionOf(3265) + " (" + std::string(table) + ")");
  for (const FieldDef& there : stored->Fields)
    if (EqualsNoCase(there.Name, field.Name)) throw RunTimeError(3191);
  connection_.Run("ALTER TABLE " + Bracketed(stored->Name) + " ADD COLUMN " +
                  ColumnDefinition(field));
}

}  // namespace kvi::jet
