#pragma once

#include <limits>

#include "base/RunTimeError.h"

namespace kvi {

// A count held in a signed 16-bit number: stepping past 32767 raises error 6 (overflow).
class Counter16 {
 public:
  explicit Counter16(int start = 0) : value_(start) {}

  Counter16& operator++() {
    if (value_ >= std::numeric_limits<short>::max()) throw RunTimeError(6);
    ++value_;
    return *this;
  }
  operator int() const { return value_; }

 private:
  int value_;
};

}  // namespace kvi
