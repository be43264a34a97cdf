#include "jet/engine/TableCatalog.h"

#include "base/RunTimeError.h"
#include "base/Text.h"

namespace kvi::jet {

std::shared_ptr<StoredTable> TableCatalog::Find(std::string_view table) {
  std::string name = UCase(table);
  if (const auto found = tables_.find(name); found != tables_.end()) return found->second;
  std::shared_ptr<StoredTable> read = connection_.ReadTable(table);
  if (!read) return nullptr;
  SetDefaults(*read);
  std::shared_ptr<std::uint64_t>& writes = writes_[name];
  if (!writes) writes = std::make_shared<std::uint64_t>(0);
  read->Writes = writes;
  return tables_.emplace(std::move(name), std::move(read)).first->second;
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
  std::vector<TableDef> tables;
  for (const std::string& name : connection_.TableNames())
    if (const auto stored = Find(name)) tables.push_back({stored->Name, stored->Fields, {}});
  return tables;
}

void TableCatalog::AppendField(std::string_view table, const FieldDef& field) {
  const auto stored = Find(table);
  if (!stored) throw RunTimeError(3265, DescriptionOf(3265) + " (" + std::string(table) + ")");
  for (const FieldDef& there : stored->Fields)
    if (EqualsNoCase(there.Name, field.Name)) throw RunTimeError(3191);
  connection_.AppendField(*stored, field);
}

}  // namespace kvi::jet
