#pragma once

#include <chrono>
#include <thread>

#include "bench/RawFile.h"

namespace kvi::bench {

// Commits in the groups that a WriteBatch commits in, with the same pause for the other desks.
class CommitGroups {
 public:
  explicit CommitGroups(RawFile& file)
      : begin_(file.Prepare("BEGIN IMMEDIATE")), commit_(file.Prepare("COMMIT")) {
    Begin();
  }
  void Next() {
    if (Clock::now() - begun_ < std::chrono::milliseconds(100)) return;
    Finish();
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    Begin();
  }
  void Finish() { Step(commit_); }

 private:
  using Clock = std::chrono::steady_clock;
  void Begin() {
    Step(begin_);
    begun_ = Clock::now();
  }

  sqlite3_stmt *begin_, *commit_;
  Clock::time_point begun_;
};

}  // namespace kvi::bench
