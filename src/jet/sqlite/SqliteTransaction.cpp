// The lock of the file, and what tells that other desks wrote to it.
#include <sqlite3.h>

#include <array>
#include <utility>

#include "jet/sqlite/EngineError.h"
#include "jet/sqlite/SqliteConnection.h"

namespace kvi::jet {
namespace {

// Where the counters stand in the file's header, as big-endian numbers.
// (The engine keeps the last one for whoever uses it.)
constexpr std::size_t kChangeCounter = 24, kSchemaCookie = 40, kUserVersion = 60, kEnd = 64;

std::uint32_t NumberAt(const unsigned char* bytes) {
  return static_cast<std::uint32_t>(bytes[0]) << 24 | static_cast<std::uint32_t>(bytes[1]) << 16 |
         static_cast<std::uint32_t>(bytes[2]) << 8 | bytes[3];
}

}  // namespace

bool SqliteConnection::InTransaction() const {
  return sqlite3_get_autocommit(db_) == 0;
}

bool SqliteConnection::HoldsNothing() const {
  return sqlite3_txn_state(db_, "main") == SQLITE_TXN_NONE;
}

bool SqliteConnection::IsAlone() const {
  return sqlite3_txn_state(db_, "main") == SQLITE_TXN_WRITE;
}

// A file has one lock for all of it.
bool SqliteConnection::TakeWriteLock(LockScope) {
  if (IsAlone()) return true;
  const int code = TryStep("BEGIN IMMEDIATE");
  if (IsBusy(code)) return false;
  if (code != SQLITE_OK) Fail(code);
  return true;
}

// Readers that just look hold a commit up for moments.
bool SqliteConnection::Commit() {
  LockWait wait;
  wait.Start();
  int code = TryStep("COMMIT");
  while (IsBusy(code) && wait.Nap()) code = TryStep("COMMIT");
  if (IsBusy(code)) return false;
  if (code != SQLITE_OK) Fail(code);
  return true;
}

void SqliteConnection::RollBack() {
  if (InTransaction()) TryStep("ROLLBACK");
}

bool SqliteConnection::BeginRead() {
  return TryStep("BEGIN") == SQLITE_OK;
}

void SqliteConnection::EndRead() {
  TryStep("COMMIT");
}

// Writing after reading keeps the lock that is held, where nobody else is about to write: no state
// of the file comes in between, and a shared folder sees half the trips.
bool SqliteConnection::WriteAfterRead() {
  return !HoldsNothing() && TryRun("DELETE FROM sqlite_sequence WHERE 0") == SQLITE_OK;
}

bool SqliteConnection::MayHaveChanged() {
  const int state = sqlite3_txn_state(db_, "main");
  if (state == SQLITE_TXN_WRITE) return false;
  if (state != SQLITE_TXN_READ) return true;
  // Taking the lock told the engine already whether the file is another than before.
  unsigned version = 0;
  sqlite3_file_control(db_, "main", SQLITE_FCNTL_DATA_VERSION, &version);
  return std::exchange(versionLookedAt_, version) != version;
}

// The counters in the file's header: one small read, without a lock.
Connection::Counters SqliteConnection::Look() {
  std::array<unsigned char, kEnd - kChangeCounter> bytes{};
  file_->pMethods->xRead(file_, bytes.data(), static_cast<int>(bytes.size()), kChangeCounter);
  return {NumberAt(bytes.data()), NumberAt(bytes.data() + (kSchemaCookie - kChangeCounter)),
          NumberAt(bytes.data() + (kUserVersion - kChangeCounter))};
}

}  // namespace kvi::jet
