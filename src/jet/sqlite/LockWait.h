#pragma once

#include <chrono>
#include <cstdint>

namespace kvi::jet {

// How long a lock that another desk holds is waited for.
inline constexpr std::chrono::milliseconds kLockWait{2000};

// The wait for a lock: short naps of random length until the time is over. The engine's own waiting
// sleeps ever longer, so that single saves starve behind a batch.
class LockWait {
 public:
  LockWait();
  void Start() { begun_ = std::chrono::steady_clock::now(); }
  // Sleeps 1 to 3 ms; false when the time is over.
  bool Nap();

 private:
  std::chrono::steady_clock::time_point begun_;
  std::uint64_t chance_;
};

}  // namespace kvi::jet
