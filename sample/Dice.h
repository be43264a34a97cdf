#pragma once

#include <cstdint>
#include <iterator>

namespace kvi {

// The sample's own source of chance (SplitMix64): the standard distributions differ between
// libraries, and the sample must be the same everywhere. Whole numbers only, for the same reason.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : state_(seed) {}

  // 0 to count - 1; 0 for a count of 0.
  int Below(int count) {
    return count > 0 ? static_cast<int>(Next() % static_cast<std::uint64_t>(count)) : 0;
  }
  int Between(int low, int high) { return low + Below(high - low + 1); }
  bool Percent(int chance) { return Below(100) < chance; }

  template <class List>
  const auto& Pick(const List& list) {
    return *(std::begin(list) + Below(static_cast<int>(std::size(list))));
  }

 private:
  std::uint64_t Next() {
    std::uint64_t mixed = (state_ += 0x9E3779B97F4A7C15u);
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
    return mixed ^ (mixed >> 31);
  }

  std::uint64_t state_;
};

}  // namespace kvi
