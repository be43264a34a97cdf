#include "jet/engine/WriteLock.h"

#include <sqlite3.h>

#include <ctime>
#include <thread>
#include <utility>

#include "base/RunTimeError.h"
#include "jet/engine/EngineError.h"

namespace kvi::jet {
WriteLock::Clock::time_point WriteLock::Tick() {
  timespec tick{};
  clock_gettime(CLOCK_MONOTONIC_COARSE, &tick);
  return Clock::time_point(std::chrono::seconds(tick.tv_sec) +
                           std::chrono::nanoseconds(tick.tv_nsec));
}

void WriteLock::Begin() {
  if (connection_.IsReadOnly()) throw RunTimeError(3027);
  if (lost_ != 0) throw RunTimeError(lost_);
  if (group_ && edits_ == 0 && IsGroupOver()) CommitGroup();
  if (reading_ && (connection_.HoldsNothing() || !KeepReadLock())) EndRead();
  if (!connection_.InTransaction()) Take();
}

// Writing after reading keeps the lock that is held, where nobody else is about to write: no state
// of the file comes in between, and a shared folder sees half the trips.
bool WriteLock::KeepReadLock() {
  if (connection_.TryRun("DELETE FROM sqlite_sequence WHERE 0") != SQLITE_OK) return false;
  reading_ = false;
  Taken();
  return true;
}

void WriteLock::Take() {
  // The other desks get their turn between two groups.
  if (InBatch()) std::this_thread::sleep_until(groupEnded_ + kPause);
  int code = connection_.TryStep("BEGIN IMMEDIATE");
  while (IsBusy(code) && connection_.AskToWait()) code = connection_.TryStep("BEGIN IMMEDIATE");
  if (code != SQLITE_OK) connection_.Fail(code);
  Taken();
}

void WriteLock::Taken() {
  watch_.Look();
  changesBefore_ = sqlite3_total_changes64(connection_.Handle());
  group_ = InBatch();
  groupBegun_ = Tick();
}

bool WriteLock::End() {
  if (InBatch()) return true;
  const int code = TryCommit();
  if (code == SQLITE_OK) {
    Release(&Writer::Committed);
    return true;
  }
  if (!IsBusy(code)) FailCommit(code);
  Forgo();
  if (!connection_.AskToWait()) throw RunTimeError(3260);
  return false;
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
    Forgo();
    throw;
  }
}

void WriteLock::Release(void (Writer::*tell)()) {
  group_ = false;
  edits_ = 0;
  ++givings_;
  for (Writer* writer : std::exchange(writers_, {})) (writer->*tell)();
}

void WriteLock::Forgo() {
  const bool wrote = HasWritten();
  if (connection_.InTransaction()) connection_.TryStep("ROLLBACK");
  Release(&Writer::TakenBack);
  changesBefore_ = sqlite3_total_changes64(connection_.Handle());
  if (wrote) watch_.Distrust();
}

std::uint64_t WriteLock::OpenEdit() {
  ++edits_;
  return givings_;
}

void WriteLock::CloseEdit(std::uint64_t& ticket) {
  if (IsHeldFor(ticket)) --edits_;
  ticket = 0;
}

void WriteLock::EnterBatch(bool whole) {
  ++batches_;
  if (batches_ == 1) whole_ = whole;
  if (group_ || !connection_.InTransaction()) return;
  group_ = true;  // an edit is open: its row is the first of the batch
  groupBegun_ = Tick();
}

void WriteLock::LeaveBatch() {
  if (--batches_ > 0) return;
  whole_ = false;
  lost_ = 0;
  if (connection_.IsOpen() && group_) Forgo();
}

void WriteLock::CommitGroup() {
  if (lost_ != 0) throw RunTimeError(lost_);
  if (!group_) return;
  if (const int code = TryCommit(); code != SQLITE_OK) FailCommit(code);
  Release(&Writer::Committed);
  groupEnded_ = Clock::now();
}

void WriteLock::Breathe() {
  if (!group_ || edits_ > 0 || !IsGroupOver()) return;
  const int code = TryCommit();
  if (IsBusy(code)) {
    groupBegun_ = Tick();  // the next write, or the next read after a while, tries again
    return;
  }
  if (code != SQLITE_OK) FailCommit(code);
  Release(&Writer::Committed);
  groupEnded_ = Clock::now();
}

bool WriteLock::BeginRead() {
  if (connection_.InTransaction()) return false;
  return reading_ = connection_.TryStep("BEGIN") == SQLITE_OK;
}

void WriteLock::EndRead() {
  if (std::exchange(reading_, false)) connection_.TryStep("COMMIT");
}

void WriteLock::GiveBack() {
  if (!connection_.IsOpen()) return;
  EndRead();
  if (connection_.HoldsNothing()) return;
  if (!group_) return Forgo();
  try {
    if (whole_) throw RunTimeError(3034);
    CommitGroup();
  } catch (const RunTimeError& error) {
    Forgo();
    lost_ = error.Number;
  }
}

}  // namespace kvi::jet
