#pragma once

#include <chrono>
#include <memory>

#include "jet/engine/ChangeWatch.h"
#include "jet/engine/Connection.h"
#include "jet/engine/TableCatalog.h"
#include "jet/engine/WriteLock.h"

namespace kvi::jet {

// What an open database consists of. Its Database owns it, its recordsets share it; once it is
// closed each of their calls raises 3420.
class Engine {
 public:
  explicit Engine(std::unique_ptr<Connection> opened);
  ~Engine();

  bool IsOpen() const { return connection.IsOpen(); }
  void RequireOpen() const;
  void Close();

  // Notices what other desks changed since the last look. Free while we hold the write lock.
  void Look();
  // The same for a row in a fast walk, where a look a row would cost more than the row: at most
  // 16 rows or 2 ms late.
  void Glance();
  // To be called before a statement is run whose rows are to be stamped, and at its first row.
  void LookBeforeReading() {
    if (!connection.ReadsUnderLock()) Look();
  }
  void LookWhileReading() {
    if (connection.ReadsUnderLock()) Look();
  }
  // When rows of a table were read. They are as the file has them while the stamp is the same.
  struct Stamp {
    std::uint64_t epoch = 0, writes = 0;
    bool operator==(const Stamp&) const = default;
  };
  Stamp Now(const StoredTable& table) const { return {watch.Epoch(), *table.Writes}; }

 private:
  const std::unique_ptr<Connection> opened_;

 public:
  Connection& connection;
  ChangeWatch watch;
  TableCatalog tables;
  WriteLock lock;

 private:
  std::uint64_t schemaEpoch_ = 0;
  int glances_ = 0;
  std::chrono::steady_clock::time_point lastLook_;
};

}  // namespace kvi::jet
