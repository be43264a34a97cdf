#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>
#include <vector>

namespace kvi::bench {

// A plain SQLite connection with the settings that ours has: what the floors stand on. Whatever
// fails ends the program, since a floor with a fault in it measures nothing.
class RawFile {
 public:
  explicit RawFile(const std::string& path);
  ~RawFile();
  RawFile(const RawFile&) = delete;
  RawFile& operator=(const RawFile&) = delete;

  void Run(const std::string& sql);
  // A statement that is prepared once and run many times; it goes with the file.
  sqlite3_stmt* Prepare(const std::string& sql);
  // All keys that a query gives in its first column.
  std::vector<sqlite3_int64> Keys(const std::string& sql);
  // The one number that a query gives.
  double Number(const std::string& sql);
  // How many rows a query has, each walked over.
  int Walk(const std::string& sql);

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };

  sqlite3* db_ = nullptr;
  std::vector<std::unique_ptr<sqlite3_stmt, Finalize>> statements_;
};

// Goes to the next row; false at the end, where the statement is ready to run again.
bool Step(sqlite3_stmt* statement);
// The place of a column in what a statement gives.
int ColumnNamed(sqlite3_stmt* statement, const char* name);
// The column's text, "" for Null.
std::string TextOf(sqlite3_stmt* statement, int column);
// The text must live until the statement has run.
void BindText(sqlite3_stmt* statement, int index, const std::string& text);

}  // namespace kvi::bench
