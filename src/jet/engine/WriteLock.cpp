#include "jet/engine/WriteLock.h"

#include <ctime>
#include <thread>
#include <utility>

#include "base/RunTimeError.h"

namespace kvi::jet {

WriteLock::Clock::time_point WriteLock::Tick() {
  timespec tick{};
  clock_gettime(CLOCK_MONOTONIC_COARSE, &tick);
  return Clock::time_point(std::chrono::seconds(tick.tv_sec) +
                           std::chrono::nanoseconds(tick.tv_nsec));
}

void WriteLock::Begin(LockScope scope) {
  if (connection_.IsReadOnly()) throw RunTimeError(3027);
  if (lost_ != 0) throw RunTimeError(lost_);
  if (group_ && edits_ == 0 && IsGroupOver()) CommitGroup();
  if (reading_ && !KeepReadLock()) EndRead();
  if (InBatch()) scope = LockScope::All;
  if (!connection_.InTransaction() || (scope == LockScope::All && !connection_.IsAlone()))
    Take(scope);
}

bool WriteLock::KeepReadLock() {
  if (!connection_.WriteAfterRead()) return false;
  reading_ = false;
  Taken();
  return true;
}

void WriteLock::Take(LockScope scope) {
  // The other desks get their turn between two groups.
  if (InBatch()) std::this_thread::sleep_until(groupEnded_ + kPause);
  const bool wasHeld = connection_.InTransaction();
  while (!connection_.TakeWriteLock(scope)) {
    if (wasHeld) Forgo();
    if (!connection_.AskToWait()) throw RunTimeError(3260);
  }
  Taken();
}

void WriteLock::Taken() {
  watch_.Look();
  changesBefore_ = connection_.AllRowsWritten();
  group_ = InBatch();
  groupBegun_ = Tick();
}

bool WriteLock::End() {
  if (InBatch()) return true;
  if (TryCommit()) {
    Release(&Writer::Committed);
    return true;
  }
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
  return connection_.AllRowsWritten() != changesBefore_;
}

// What cannot be committed is taken back, but where a lock is the reason.
bool WriteLock::TryCommit() {
  try {
    if (!connection_.Commit()) return false;
  } catch (...) {
    Forgo();
    throw;
  }
  if (HasWritten()) watch_.ExpectOwnCommit();
  return true;
}

void WriteLock::Release(void (Writer::*tell)()) {
  group_ = false;
  edits_ = 0;
  ++givings_;
  for (Writer* writer : std::exchange(writers_, {})) (writer->*tell)();
}

void WriteLock::Forgo() {
  const bool wrote = HasWritten();
  connection_.RollBack();
  Release(&Writer::TakenBack);
  changesBefore_ = connection_.AllRowsWritten();
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
  if (!TryCommit()) {
    Forgo();
    throw RunTimeError(3260);
  }
  EndGroup();
}

void WriteLock::Breathe() {
  if (!group_ || edits_ > 0 || !IsGroupOver()) return;
  if (TryCommit())
    EndGroup();
  else
    groupBegun_ = Tick();  // the next write, or the next read after a while, tries again
}

void WriteLock::EndGroup() {
  Release(&Writer::Committed);
  groupEnded_ = Clock::now();
}

bool WriteLock::BeginRead() {
  if (connection_.InTransaction()) return false;
  return reading_ = connection_.BeginRead();
}

void WriteLock::EndRead() {
  if (std::exchange(reading_, false)) connection_.EndRead();
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
