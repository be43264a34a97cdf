#include "jet/sqlite/LockWait.h"

#include <unistd.h>

#include <thread>

namespace kvi::jet {

LockWait::LockWait()
    : chance_(
          static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count()) ^
          (static_cast<std::uint64_t>(getpid()) << 32) ^ 1) {}

bool LockWait::Nap() {
  if (std::chrono::steady_clock::now() - begun_ >= kLockWait) return false;
  chance_ = chance_ * 6364136223846793005ULL + 1442695040888963407ULL;
  std::this_thread::sleep_for(std::chrono::microseconds(1000 + (chance_ >> 33) % 2000));
  return true;
}

}  // namespace kvi::jet
