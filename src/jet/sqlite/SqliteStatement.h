#pragma once

#include "jet/sqlite/SqliteConnection.h"

namespace kvi::jet {

// A prepared statement of SQLite's. It is reset at the end of each run: a statement left open would
// hold the file against every other desk.
class SqliteStatement : public Statement {
 public:
  SqliteStatement(SqliteConnection& connection, sqlite3_stmt* statement)
      : connection_(connection), statement_(statement) {}
  ~SqliteStatement() override;
  SqliteStatement(const SqliteStatement&) = delete;
  SqliteStatement& operator=(const SqliteStatement&) = delete;

  sqlite3_stmt* Handle() const { return statement_; }

  int Parameters() override;
  void BindNull(int index) override;
  void Bind(int index, std::int64_t value) override;
  void Bind(int index, double value) override;
  void Bind(int index, std::string_view text) override;
  void Bind(int index, const Date& date) override;
  bool Step() override;
  void Finish() override;
  int Columns() override;
  std::string_view Name(int column) override;
  std::string_view DeclaredType(int column) override;
  Kind KindOf(int column) override;
  std::int64_t Whole(int column) override;
  double Number(int column) override;
  std::string_view Text(int column) override;

 private:
  SqliteConnection& connection_;
  sqlite3_stmt* statement_;
};

}  // namespace kvi::jet
