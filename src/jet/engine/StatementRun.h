#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "base/Value.h"
#include "jet/TableDef.h"
#include "jet/engine/Connection.h"

namespace kvi::jet {

// One run of a prepared statement. What it holds is given back at the end, whatever happens.
class StatementRun {
 public:
  StatementRun(Connection& connection, std::string_view sql) : run_(connection.Start(sql)) {}
  ~StatementRun() { run_.Finish(); }
  StatementRun(const StatementRun&) = delete;
  StatementRun& operator=(const StatementRun&) = delete;

  // A text bound must live as long as the run.
  void Bind(int index, std::int64_t value) { run_.Bind(index, value); }
  void Bind(int index, std::string_view text) { run_.Bind(index, text); }
  void Bind(int index, const Value& value);
  // The parameters from ?1 on, as far as the statement has them.
  void BindAll(const std::vector<Value>& parameters);

  bool Step() { return run_.Step(); }
  void Write(bool mayCollide) { run_.Write(mayCollide); }

  int Columns() const { return run_.Columns(); }
  std::string_view Name(int column) const { return run_.Name(column); }
  std::string_view DeclaredType(int column) const { return run_.DeclaredType(column); }

  bool IsNull(int column) const { return run_.KindOf(column) == Statement::Kind::Null; }
  std::int64_t Whole(int column) const { return run_.Whole(column); }
  std::string_view Text(int column) const { return run_.Text(column); }
  // As a field of this type holds it: no Null in a boolean, dates out of their ISO text.
  Value Field(int column, FieldType type) const;
  // As it is stored.
  Value Plain(int column) const;

 private:
  Statement& run_;
};

}  // namespace kvi::jet
