#pragma once

namespace kvi {

// How a count differs from the level that the system holds.
struct CountVariance {
  double difference = 0;  // counted less theoretical
  double percent = 0;     // of the count, not of the theoretical level
  bool overLimit = false;
};

// The limit itself is over the limit. A part counted as 0 reports no variance, whatever its
// theoretical level was.
CountVariance VarianceOfCount(double theoretical, double counted, double acceptablePercent);

}  // namespace kvi
