#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "base/Value.h"
#include "jet/TableDef.h"
#include "jet/engine/Connection.h"

namespace kvi::jet {

// One run of a prepared statement. It is reset at the end, whatever happens: a statement left open
// would hold the file against every other desk.
class StatementRun {
 public:
  StatementRun(Connection& connection, std::string_view sql);
  ~StatementRun();
  StatementRun(const StatementRun&) = delete;
  StatementRun& operator=(const StatementRun&) = delete;

  // A text bound must live as long as the run.
  void Bind(int index, std::int64_t value);
  void Bind(int index, std::string_view text);
  void Bind(int index, const Value& value);
  // The parameters from ?1 on, as far as the statement has them.
  void BindAll(const std::vector<Value>& parameters);

  // Goes to the next row; false at the end.
  bool Step();

  int Columns() const;
  std::string_view Name(int column) const;
  // The type that the column was declared with, "" for an expression.
  std::string_view DeclaredType(int column) const;

  bool IsNull(int column) const;
  std::int64_t Whole(int column) const;
  std::string_view Text(int column) const;
  // As a field of this type holds it: no Null in a boolean, dates out of their ISO text.
  Value Field(int column, FieldType type) const;
  // As it is stored.
  Value Plain(int column) const;

 private:
  Connection& connection_;
  sqlite3_stmt* statement_;
};

}  // namespace kvi::jet
