#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "jet/engine/Connection.h"
#include "jet/postgres/KeptAnswers.h"
#include "jet/postgres/PostgresLine.h"

namespace kvi::jet {

class PostgresStatement;

// A database on a PostgreSQL server. A single save holds a shared lock of the database and its row,
// so that desks save side by side; a batch holds the database's lock alone. What writes without
// being able to fail goes off with what comes next, so that a save is two trips and a batch few.
// A line that broke is made again; whether a commit whose answer was lost was done, the server
// itself knows by the transaction's number.
class PostgresConnection : public Connection {
 public:
  // The file names the server's database by `address`. Raises 3151 where it cannot be reached, 3343
  // where it is none of ours, 3045 where another desk has it exclusively.
  PostgresConnection(std::string path, const std::string& address, bool exclusive);
  ~PostgresConnection() override;

  bool IsOpen() const override { return open_; }
  bool IsReadOnly() const override { return readOnly_; }
  std::string Path() const override { return path_; }
  void Close() override;
  SqlForm Form() const override { return SqlForm::Postgres; }

  Statement& Start(std::string_view sql) override;
  long RowsWritten() const override { return rowsWritten_; }
  std::int64_t AllRowsWritten() const override { return allRowsWritten_; }
  std::int64_t NextKey(const StoredTable& table) override;
  std::int64_t LastKey() const override { return 0; }
  std::string ListSql(const std::string& columns, const StoredTable& table) const override;
  std::string_view ForUpdate() const override { return " FOR UPDATE"; }

  bool InTransaction() const override { return state_ != State::None; }
  bool HoldsNothing() const override { return state_ != State::Open; }
  bool IsAlone() const override { return state_ == State::Open && scope_ == LockScope::All; }
  bool TakeWriteLock(LockScope scope) override;
  bool Commit() override;
  void RollBack() override;
  // A server keeps no desk waiting for readers, so several reads need no lock.
  bool BeginRead() override { return false; }
  void EndRead() override {}
  bool WriteAfterRead() override { return false; }

  bool ReadsUnderLock() const override { return false; }
  bool IsDistant() const override { return true; }
  bool MayHaveChanged() override;
  Counters Look() override;
  std::uint64_t StepsOfCommit() const override { return stepsOfCommit_; }
  std::uint64_t LineNumber() const override { return line_.Number(); }
  std::uint64_t UnsureCommit() const override { return unsure_.Transaction; }
  bool WasCommitted(std::uint64_t transaction) override;

  std::vector<std::string> TableNames() override;
  std::shared_ptr<StoredTable> ReadTable(std::string_view table) override;
  void AppendField(const StoredTable& table, const FieldDef& field) override;

  void CopyTo(const std::string& path) override;
  void Check() override;
  std::unique_ptr<NewContent> OpenContent(const std::string& path) override;

  // Makes these tables in a database that has none; 3204 where it has.
  void CreateTables(const std::vector<TableDef>& tables);
  // A statement of the server's own words, in the open transaction or alone.
  ServerResult Ask(const std::string& sql);
  // For what makes and drops tables, until the transaction's end: they belong to one role, whoever
  // of the desks makes them.
  void ActAsOwner();
  // Tells all desks that tables changed.
  void TellOfTables();
  void KeepIndexes(const TableDef& table);
  std::vector<IndexDef> KeptIndexes(const std::string& table);
  // Hands rows over, a line of COPY's text each, until there are no more.
  void CopyIn(const std::string& sql, const std::function<bool(std::string&)>& next);

  // What a statement asks of its connection. `Run` gives its answer, together with what was queued
  // before; `Answer` does so too, where it is not known already; `RunLater` sends it with what
  // comes next.
  ServerResult Run(const std::string& sql, const std::vector<Parameter>& parameters, bool reads);
  ServerResult Answer(const std::string& sql);
  void RunLater(const std::string& sql, const std::vector<Parameter>& parameters);
  // The spelling and the type of a column of ours, by the server's numbers.
  struct Column {
    std::string Name, Type;
  };
  const Column* ColumnOf(Oid table, int column) const;

 private:
  // Announced: the lock goes off with the first statement under it.
  enum class State { None, Announced, Open };
  using Clock = std::chrono::steady_clock;

  void RequireUp();
  void RequireOurs();
  void TakeSession();
  void QueueBegin();
  void BeginMoment();
  std::vector<ServerResult> Exchange();
  std::vector<ServerResult> RunAlone(const std::function<void()>& queue, bool reads);
  ServerResult RunInside(const std::string& sql, const std::vector<Parameter>& parameters);
  bool TakeRowBack();
  void CountRows(const PGresult* result);
  void EndTransaction();
  void TakeBegin(const PGresult* result);
  void TakeLook(const PGresult* result, int column);
  bool AskWhetherCommitted(std::uint64_t transaction);
  [[noreturn]] void Lost(const ServerFailure& failure);

  const std::string path_;
  const bool exclusive_;
  PostgresLine line_;
  bool open_ = false, readOnly_ = false;

  State state_ = State::None;
  LockScope scope_ = LockScope::Row;
  bool beginQueued_ = false;
  std::uint64_t transaction_ = 0;  // the server's number of it, 0 until it told
  std::uint64_t stepsOfCommit_ = 1;
  long rowsWritten_ = 0;
  std::int64_t allRowsWritten_ = 0;

  struct Unsure {
    std::uint64_t Transaction = 0;
    int Backend = 0;
  };
  Unsure unsure_;  // a commit whose answer is not known

  KeptAnswers kept_;
  Counters seen_;
  bool unseen_ = false;  // `seen_` came with another answer and nobody looked since
  std::chrono::milliseconds lookEvery_{50};
  Clock::time_point lastLook_;

  std::map<std::pair<Oid, int>, Column> columns_;
  std::map<std::string, std::vector<std::int64_t>> keys_;  // set aside for rows of a group
  std::unordered_map<std::string, std::unique_ptr<PostgresStatement>> statements_;
};

}  // namespace kvi::jet
