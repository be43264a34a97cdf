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

// A table as the file has it. A file that another tool made has no columns of ours: then the row
// number stands for `_rid`, and no change by another desk is noticed at Edit.
struct StoredTable {
  std::string Name;
  std::vector<FieldDef> Fields;  // without the hidden columns
  std::string Key;               // the column that identifies a row; "" when none does
  bool Versioned = false;
  // Counts the writes of this process to the table, so that rows held in memory know their age.
  std::shared_ptr<std::uint64_t> Writes;
};

// What tables there are, read from the file when first asked for.
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

  static void CreateTable(Connection& connection, const TableDef& table);
  // The table's index of this number. Raises 3022 where rows share a key that is to be unique.
  static void CreateIndex(Connection& connection, const std::string& table, const IndexDef& index,
                          int number);
  void AppendField(std::string_view table, const FieldDef& field);

 private:
  std::shared_ptr<StoredTable> Read(std::string_view table);
  void SetDefaults(StoredTable& table) const;

  Connection& connection_;
  std::uint64_t epoch_ = 1;
  // By the name in upper case.
  std::map<std::string, std::shared_ptr<StoredTable>> tables_;
  std::map<std::string, std::shared_ptr<std::uint64_t>> writes_;
  std::map<std::string, std::vector<FieldDef>> defaults_;
};

}  // namespace kvi::jet
