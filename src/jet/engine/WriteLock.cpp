#include "jet/engine/WriteLock.h"

#include <sqlite3.h>

#include <ctime>
#include <thread>

#include "base/RunTimeError.h"

namespace kvi::jet {
namespace {

bool IsBusy(int code) {
  return (code & 0xFF) == SQLITE_BUSY;
}

}  // namespace

WriteLock::Clock::time_point WriteLock::Tick() {
  timespec tick{};
  clock_gettime(CLOCK_MONOTONIC_COARSE, &tick);
  return Clock::time_point(std::chrono::seconds(tick.tv_sec) +
                           std::chrono::nanoseconds(tick.tv_nsec));
}

void WriteLock::Begin() {
  if (connection_.IsReadOnly()) throw RunTimeError(3027);
  if (group_ && edits_ == 0 && (!InBatch() || IsGroupOver())) CommitGroup();
  if (!connection_.InTransaction()) Take();
}

void WriteLock::Take() {
  // The other desks get their turn between two groups.
  if (InBatch()) std::this_thread::sleep_until(groupEnded_ + kPause);
  if (const int code = connection_.TryStep("BEGIN IMMEDIATE"); code != SQLITE_OK)
    connection_.Fail(code);
  watch_.Look();
  changesBefore_ = sqlite3_total_changes64(connection_.Handle());
  group_ = InBatch();
  groupBegun_ = Tick();
}

void WriteLock::End() {
  if (InBatch()) return;
  if (edits_ > 0)
    CommitKeepingLock();
  else
    Commit();
}

void WriteLock::Abandon() {
  // A failed statement took its own row back, and the rows before it in the group stand; unless the
  // failure was of a kind that has ended the transaction.
  if ((!group_ && edits_ == 0) || !connection_.InTransaction()) Forgo();
}

bool WriteLock::HasWritten() const {
  return sqlite3_total_changes64(connection_.Handle()) != changesBefore_;
}

int WriteLock::TryCommit() {
  LockWait wait;
  wait.Start();
  int code = connection_.TryStep("COMMIT");
  while (IsBusy(code) && wait.Nap()) code = connection_.TryStep("COMMIT");
  if (code == SQLITE_OK && HasWritten()) watch_.ExpectOwnCommit();
  return code;
}

void WriteLock::FailCommit(int code) {
  try {
    connection_.Fail(code);
  } catch (const RunTimeError&) {
    if (!IsBusy(code) || !group_) Forgo();
    throw;
  }
}

void WriteLock::Commit() {
  if (const int code = TryCommit(); code != SQLITE_OK) FailCommit(code);
  group_ = false;
  edits_ = 0;
  ++givings_;
}

void WriteLock::CommitKeepingLock() {
  // In exclusive mode a commit does not let go of the file, so nobody slips in between this row
  // and the edit that still relies on the lock. Normal mode ends it with the next commit.
  if (!connection_.IsExclusive()) connection_.Run("PRAGMA locking_mode=EXCLUSIVE");
  const int committed = TryCommit();
  const int begun = committed == SQLITE_OK ? connection_.TryStep("BEGIN IMMEDIATE") : SQLITE_OK;
  if (!connection_.IsExclusive()) connection_.Run("PRAGMA locking_mode=NORMAL");
  if (committed != SQLITE_OK) FailCommit(committed);
  if (begun != SQLITE_OK) Forgo();
  changesBefore_ = sqlite3_total_changes64(connection_.Handle());
}

void WriteLock::Forgo() {
  const bool wrote = HasWritten();
  if (connection_.InTransaction()) connection_.TryStep("ROLLBACK");
  group_ = false;
  edits_ = 0;
  ++givings_;
  changesBefore_ = sqlite3_total_changes64(connection_.Handle());
  if (wrote) watch_.Distrust();
}

std::uint64_t WriteLock::OpenEdit() {
  ++edits_;
  return givings_;
}

void WriteLock::CloseEdit(std::uint64_t ticket) {
  if (IsHeldFor(ticket)) --edits_;
}

void WriteLock::EnterBatch(bool whole) {
  ++batches_;
  if (batches_ == 1) whole_ = whole;
  if (group_ || !connection_.InTransaction()) return;
  group_ = true;  // an edit is open: its row is the first of the batch
  groupBegun_ = Tick();
}

void WriteLock::DropGroup() {
  if (connection_.IsOpen() && group_) Forgo();
}

void WriteLock::CommitGroup() {
  if (!group_) return;
  Commit();
  groupEnded_ = Clock::now();
}

void WriteLock::Breathe() {
  if (!group_ || edits_ > 0 || !IsGroupOver()) return;
  try {
    CommitGroup();
  } catch (const RunTimeError& error) {
    if (error.Number != 3260) throw;
    groupBegun_ = Tick();  // the next write, or the next read after a while, tries again
  }
}

void WriteLock::GiveBack() {
  if (!connection_.IsOpen() || !connection_.InTransaction()) return;
  if (!group_) return Forgo();
  try {
    CommitGroup();
  } catch (const RunTimeError&) {
    // Busy: the next write or the batch's end tries again. Anything else has ended the group.
  }
}

}  // namespace kvi::jet
