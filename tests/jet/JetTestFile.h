#pragma once

#include <gtest/gtest.h>
#include <sys/types.h>

#include <functional>
#include <string>

#include "jet/Database.h"
#include "support/TemporaryFolder.h"

struct sqlite3;

namespace kvi::jet {

// A stockroom's file of two tables for each test, in a folder of its own.
class JetFile : public ::testing::Test {
 public:
  // The fields named (parted by blanks) of a statement's rows, a row a line, cells parted by "|".
  static std::string RowsOf(Database& database, const std::string& sql, const std::string& fields);

 protected:
  JetFile();

  std::string Rows(const std::string& sql, const std::string& fields);
  // Parts "1" to `count`, named "Part 1" ... with a level of 10 each.
  void AddParts(int count);

  test::TemporaryFolder folder_;
  std::string path_;
  Database db_;
};

inline const std::string kParts = "SELECT * FROM I_Master ORDER BY name";

std::vector<TableDef> TestTables();

// The file as another program would see it, without any rule of ours.
class RawFile {
 public:
  explicit RawFile(const std::string& path);
  ~RawFile();
  // The first column's values, a line each, or the engine's message.
  std::string Ask(const std::string& sql);

 private:
  sqlite3* db_ = nullptr;
};

// Runs the action in a process of its own, which must open its databases itself.
class OtherProcess {
 public:
  // What the action reports comes out line by line.
  using Report = std::function<void(const std::string& line)>;
  explicit OtherProcess(const std::function<void(const Report&)>& action);
  ~OtherProcess();

  // The next line, "" when there are no more. An error that the action lets through is one.
  std::string Line();
  std::string AllLines();
  void Kill();
  // Wakes a process that stopped itself.
  void GoOn();

 private:
  void Wait();

  pid_t pid_ = -1;
  int pipe_ = -1;
};

// Gives up the rights that a test run may have: file permissions do not bind root.
void BecomeNobody();

}  // namespace kvi::jet
