#pragma once

#include <chrono>
#include <cstdint>
#include <vector>

#include "jet/engine/ChangeWatch.h"
#include "jet/engine/Connection.h"

namespace kvi::jet {

// Who holds the write lock, and until when. There is one transaction at most; it ends with
// the row that was written, or, within a batch, with the group of rows. A commit that fails takes
// back what it was to commit: nothing is held afterwards.
//
// An edit holds the lock from Edit to Update without having written. Whatever ends the transaction
// meanwhile, be it another row that is written or a box, makes its ticket stale, and Update takes
// the lock again.
class WriteLock {
 public:
  // Whoever holds rows in memory that the open transaction has written. Told once how it ended.
  class Writer {
   public:
    virtual void Committed() = 0;
    virtual void TakenBack() = 0;

   protected:
    ~Writer() = default;
  };

  WriteLock(Connection& connection, ChangeWatch& watch) : connection_(connection), watch_(watch) {}

  // Runs `write`, which writes one row or one statement's rows, under the lock; outside of a batch
  // they are committed at once. 3027, or 3260 when the wait is over; where the user goes on waiting
  // instead, `write` runs again, on what the other desk left.
  template <typename Write>
  void Run(LockScope scope, Write write) {
    do {
      Begin(scope);
      try {
        write();
      } catch (...) {
        Abandon();
        throw;
      }
    } while (!End());
  }

  // Takes the lock or joins the transaction that has it; errors as Run. A batch takes all.
  void Begin(LockScope scope);
  // What Begin was for is not written after all.
  void Abandon();

  // A transaction of reads alone, until it is ended, something is written or all is given back.
  // False where another one is open.
  bool BeginRead();
  void EndRead();

  void Join(Writer& writer) { writers_.push_back(&writer); }
  void Part(const Writer& writer) { std::erase(writers_, &writer); }

  // An edit that relies on the lock. A ticket is good until the lock is given back or the edit is
  // closed.
  std::uint64_t OpenEdit();
  bool IsHeldFor(std::uint64_t ticket) const { return ticket == givings_ && edits_ > 0; }
  void CloseEdit(std::uint64_t& ticket);

  // One that is `whole` is committed in a single group, however long it takes.
  void EnterBatch(bool whole);
  // What the outermost batch has not committed by now is taken back.
  void LeaveBatch();
  bool InBatch() const { return batches_ > 0; }
  bool IsOutermostBatch() const { return batches_ == 1; }
  // Commits the open group of a batch, if there is one. Raises what made GiveBack drop a group.
  void CommitGroup();
  // Ends a group whose time is over. To be called by whatever reads in a long pass; a lock is no
  // reason for a read to fail.
  void Breathe();

  // Nothing is held afterwards. A group is committed; one that cannot be, or that had to go whole,
  // is taken back, and its batch fails at its next write or at its end.
  void GiveBack();

 private:
  using Clock = std::chrono::steady_clock;

  // The clock by its last tick: some milliseconds late, and a fifth of the cost. It is asked for
  // every row of a batch.
  static Clock::time_point Tick();

  void Take(LockScope scope);
  bool KeepReadLock();
  void Taken();
  // False when the commit met a lock and the user goes on waiting: the rows must be written again.
  bool End();
  bool TryCommit();
  void EndGroup();
  void Release(void (Writer::*tell)());
  void Forgo();
  bool HasWritten() const;
  bool IsGroupOver() const { return !whole_ && Tick() - groupBegun_ >= kGroup; }
  static constexpr std::chrono::milliseconds kGroup{100};
  static constexpr std::chrono::milliseconds kPause{5};

  Connection& connection_;
  ChangeWatch& watch_;
  int batches_ = 0;
  bool whole_ = false;
  bool group_ = false;  // the transaction is a batch's
  int lost_ = 0;        // the number of what made GiveBack drop a group of the batch
  bool reading_ = false;
  int edits_ = 0;
  std::uint64_t givings_ = 1;
  std::int64_t changesBefore_ = 0;
  Clock::time_point groupBegun_, groupEnded_;
  std::vector<Writer*> writers_;
};

// Leaves a batch however its end goes.
struct LeavingBatch {
  WriteLock& lock;
  ~LeavingBatch() { lock.LeaveBatch(); }
};

}  // namespace kvi::jet
