#pragma once

#include <optional>
#include <string>
#include <vector>

#include "jet/engine/StatementRun.h"
#include "jet/sqlite/SqliteConnection.h"

namespace kvi::jet {

// A table that is made and filled in a new file, out of one that another program made and, where
// there is one, ours of the same name. It keeps what it had, in its own types.
class NewTable {
 public:
  // Borrows the connection, within whose transaction all is done. Raises 3075 or 3191 for names
  // that cannot be.
  NewTable(SqliteConnection& connection, const TableDef& old, const TableDef* ours);

  // False for a row that a field refused.
  bool Add(const std::vector<Value>& row, int number);
  // Makes the indexes, and raises 3049 unless the table holds so many rows.
  void Finish(int rows);

  // The rows that were refused, and what became of indexes, a line each.
  std::vector<std::string> Refused() const;
  const std::vector<std::string>& Notes() const { return notes_; }

 private:
  void MakeIndex(IndexDef index);
  std::string SharedKeys(const IndexDef& index);

  SqliteConnection& connection_;
  TableDef design_;
  std::string insert_;
  std::vector<Value> fields_;  // of the row that is written
  std::vector<std::string> refused_, notes_;
  int refusedRows_ = 0, indexes_ = 0;
};

}  // namespace kvi::jet
