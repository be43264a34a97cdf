#pragma once

#include <utility>

namespace kvi {

// Raises a bool for the length of a scope; the value before comes back, however the scope ends.
class Flag {
 public:
  explicit Flag(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
  ~Flag() { flag_ = before_; }
  Flag(const Flag&) = delete;
  Flag& operator=(const Flag&) = delete;

 private:
  bool& flag_;
  const bool before_;
};

}  // namespace kvi
