#pragma once

#include <chrono>
#include <cstdint>

#include "jet/engine/ChangeWatch.h"
#include "jet/engine/Connection.h"

namespace kvi::jet {

// Who holds the file's write lock, and until when. There is one transaction at most; it ends with
// the row that was written, or, within a batch, with the group of rows.
//
// An edit holds the lock from Edit to Update without having written. When another row is written
// meanwhile, that row is committed at once and the lock is kept for the edit.
class WriteLock {
 public:
  WriteLock(Connection& connection, ChangeWatch& watch) : connection_(connection), watch_(watch) {}

  // Takes the lock or joins the transaction that has it. 3027, or 3260 when the wait is over.
  void Begin();
  // The row is written: outside of a batch it is committed now. 3260 takes the row back.
  void End();
  // The row is not written after all.
  void Abandon();

  // An edit that relies on the lock. A ticket is good until the lock is given back.
  std::uint64_t OpenEdit();
  bool IsHeldFor(std::uint64_t ticket) const { return ticket == givings_ && edits_ > 0; }
  void CloseEdit(std::uint64_t ticket);

  // One that is `whole` is committed in a single group, however long it takes.
  void EnterBatch(bool whole);
  void LeaveBatch() {
    if (--batches_ == 0) whole_ = false;
  }
  bool InBatch() const { return batches_ > 0; }
  bool IsOutermostBatch() const { return batches_ == 1; }
  // Takes back what the open group of a batch has written so far.
  void DropGroup();
  // Commits the open group of a batch, if there is one.
  void CommitGroup();
  // Ends a group whose time is over. To be called by whatever reads in a long pass; a lock is no
  // reason for a read to fail.
  void Breathe();

  // Nothing is held afterwards, unless a group's commit stays busy: its rows are not dropped for
  // it.
  void GiveBack();

 private:
  using Clock = std::chrono::steady_clock;

  // The clock by its last tick: some milliseconds late, and a fifth of the cost. It is asked for
  // every row of a batch.
  static Clock::time_point Tick();

  void Take();
  void Commit();
  void CommitKeepingLock();
  int TryCommit();
  [[noreturn]] void FailCommit(int code);
  void Forgo();
  bool HasWritten() const;
  bool IsGroupOver() const { return !whole_ && Tick() - groupBegun_ >= kGroup; }
  static constexpr std::chrono::milliseconds kGroup{100};
  static constexpr std::chrono::milliseconds kPause{5};

  Connection& connection_;
  ChangeWatch& watch_;
  int batches_ = 0;
  bool whole_ = false;
  bool group_ = false;  // the transaction holds rows of a batch, which are never dropped for a lock
  int edits_ = 0;
  std::uint64_t givings_ = 1;
  std::int64_t changesBefore_ = 0;
  Clock::time_point groupBegun_, groupEnded_;
};

}  // namespace kvi::jet
