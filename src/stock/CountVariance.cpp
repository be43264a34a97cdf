#include "stock/CountVariance.h"

#include <cmath>

namespace kvi {

CountVariance VarianceOfCount(double theoretical, double counted, double acceptablePercent) {
  if (counted == 0) return {};
  const double difference = counted - theoretical;
  const double limit = acceptablePercent / 100;
  return {difference, difference * 100 / counted, std::fabs(difference / counted) >= limit};
}

}  // namespace kvi
