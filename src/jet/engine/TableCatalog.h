#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "jet/TableDef.h"
#include "jet/engine/Connection.h"

namespace kvi::jet {

// What tables there are, read when first asked for.
class TableCatalog {
 public:
  explicit TableCatalog(Connection& connection) : connection_(connection) {}

  // Null for an unknown table.
  std::shared_ptr<StoredTable> Find(std::string_view table);
  std::vector<TableDef> Tables();
  void Forget() {
    tables_.clear();
    ++epoch_;
  }
  // What is read from now on has these fields' defaults.
  void UseDefaultsOf(const std::vector<TableDef>& tables);
  // Counts how often the tables were forgotten: what was known of them then may not hold.
  std::uint64_t Epoch() const { return epoch_; }

  void AppendField(std::string_view table, const FieldDef& field);

 private:
  void SetDefaults(StoredTable& table) const;

  Connection& connection_;
  std::uint64_t epoch_ = 1;
  // By the name in upper case.
  std::map<std::string, std::shared_ptr<StoredTable>> tables_;
  std::map<std::string, std::shared_ptr<std::uint64_t>> writes_;
  std::map<std::string, std::vector<FieldDef>> defaults_;
};

}  // namespace kvi::jet
