#pragma once

#include <random>

#include "base/Date.h"

namespace kvi {

// The desk's date and time of day.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual Date Now() const = 0;
};

class SystemClock : public Clock {
 public:
  Date Now() const override;
};

// Where chance comes from: a number from 0 up to, but not including, 1.
class Chance {
 public:
  virtual ~Chance() = default;
  virtual double Next() = 0;
};

class SystemChance : public Chance {
 public:
  double Next() override;

 private:
  std::mt19937_64 source_{std::random_device{}()};
};

}  // namespace kvi
