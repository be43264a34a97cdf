#include <gtest/gtest.h>

#include "stock/CountVariance.h"

namespace kvi::test {
namespace {

TEST(CountVarianceTest, PercentIsTakenOnTheCountAndTheLimitBelongsToIt) {
  const struct {
    double theoretical, counted, limit, difference, percent;
    bool over;
  } cases[] = {
      {95, 100, 5, 5, 5, true},       {96, 100, 5, 4, 4, false}, {100, 80, 25, -20, -25, true},
      {100, 80, 26, -20, -25, false}, {50, 0, 0, 0, 0, false},   {7, 7, 0, 0, 0, true},
      {7, 7, 1, 0, 0, false},         {0, 4, 100, 4, 100, true}, {-2, -4, 50, -2, 50, true}};
  for (const auto& row : cases) {
    const CountVariance variance = VarianceOfCount(row.theoretical, row.counted, row.limit);
    SCOPED_TRACE(testing::Message() << row.theoretical << " counted " << row.counted);
    EXPECT_DOUBLE_EQ(variance.difference, row.difference);
    EXPECT_DOUBLE_EQ(variance.percent, row.percent);
    EXPECT_EQ(variance.overLimit, row.over);
  }
}

}  // namespace
}  // namespace kvi::test
