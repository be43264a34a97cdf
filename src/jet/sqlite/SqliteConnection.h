#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "jet/engine/Connection.h"
#include "jet/sqlite/LockWait.h"

struct sqlite3;
struct sqlite3_stmt;
struct sqlite3_file;

namespace kvi::jet {

class SqliteStatement;

// A database file through SQLite: the open file, its settings, its prepared statements by their
// text, and its lock.
class SqliteConnection : public Connection {
 public:
  // An existing database file; raises as Database::Open does.
  SqliteConnection(const std::string& path, bool exclusive);
  // A new one, or ":memory:".
  explicit SqliteConnection(const std::string& newPath);
  ~SqliteConnection() override;

  bool IsOpen() const override { return db_ != nullptr; }
  bool IsReadOnly() const override { return readOnly_; }
  std::string Path() const override;
  void Close() override;
  SqlForm Form() const override { return SqlForm::Sqlite; }

  Statement& Start(std::string_view sql) override;
  long RowsWritten() const override;
  std::int64_t AllRowsWritten() const override;
  std::int64_t NextKey(const StoredTable&) override { return 0; }
  std::int64_t LastKey() const override;
  std::string ListSql(const std::string& columns, const StoredTable& table) const override;

  bool InTransaction() const override;
  bool HoldsNothing() const override;
  bool IsAlone() const override;
  bool TakeWriteLock(LockScope scope) override;
  bool Commit() override;
  void RollBack() override;
  bool BeginRead() override;
  void EndRead() override;
  bool WriteAfterRead() override;

  bool MayHaveChanged() override;
  Counters Look() override;

  std::vector<std::string> TableNames() override;
  std::shared_ptr<StoredTable> ReadTable(std::string_view table) override;
  void AppendField(const StoredTable& table, const FieldDef& field) override;

  void CopyTo(const std::string& path) override;
  void Check() override;
  std::unique_ptr<NewContent> OpenContent(const std::string& path) override;

  sqlite3* Handle() const { return db_; }
  sqlite3_file* File() const { return file_; }
  // Runs a prepared statement without a result; the engine's code.
  int TryStep(std::string_view sql);
  // Runs a text once: settings, and what changes tables.
  int TryRun(const std::string& sql);
  void Run(const std::string& sql);
  [[noreturn]] void Fail(int code) const;

 private:
  struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
    }
  };

  void OpenFile(const std::string& path, int flags);
  void CheckHeader(const std::string& path) const;
  void SetUpDialect();
  void Configure(const std::string& path);
  void TakeExclusively();
  sqlite3_stmt* Prepare(std::string_view sql);
  SqliteStatement& Prepared(std::string_view sql);

  sqlite3* db_ = nullptr;
  sqlite3_file* file_ = nullptr;
  bool readOnly_ = false;
  const bool exclusive_;
  unsigned versionLookedAt_ = 0;
  LockWait lockWait_;
  std::unordered_map<std::string, std::unique_ptr<SqliteStatement>, TextHash, std::equal_to<>>
      statements_;
};

}  // namespace kvi::jet
