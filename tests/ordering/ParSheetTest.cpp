#include "ordering/ParSheet.h"

#include <gtest/gtest.h>

#include "base/ErrorOf.h"
#include "ordering/SavedOrders.h"

namespace kvi::test {
namespace {

TEST(ParSheetTest, OnlyTheParLevelDecidesWhatIsSuggested) {
  const Value null;
  const struct {
    Value par, level;
    const char* suggested;
    bool hidden;
  } cases[] = {{10, 4, "6.00", false},       {4, 10, "0.00", true},    {5, 5, "0.00", true},
               {10.3, -1.1, "11.40", false}, {null, 4, "0.00", false}, {4, null, "0.00", false}};
  for (const auto& c : cases) {
    EXPECT_EQ(SuggestedOrder(c.par, c.level), c.suggested)
        << c.par.Text() << ", " << c.level.Text();
    EXPECT_EQ(IsAtPar(c.par, c.level), c.hidden) << c.par.Text() << ", " << c.level.Text();
  }
  EXPECT_FALSE(IsBelowReOrder(5, 5));
  EXPECT_TRUE(IsBelowReOrder(4.99, 5));
  EXPECT_FALSE(IsBelowReOrder(-1, null));
}

TEST(ParSheetTest, TheOptionsWorkOnTheCellsTexts) {
  EXPECT_EQ(RoundedUp("2.01") + "|" + RoundedUp("2.00") + "|" + RoundedUp("0") + "|" +
                RoundedUp("-1.5") + "|" + RoundedUp("x"),
            "3.00|2.00|0|-1.5|x");
  EXPECT_EQ(Adjusted("100.00", 5) + "|" + Adjusted("0.00", 5) + "|" + Adjusted("10", -150),
            "105.00|.00|-5.00");
  EXPECT_EQ(LessOnOrder("2.00", "5.00") + "|" + LessOnOrder("5.00", "2.00"), "0.00|3.00");
}

TEST(ParSheetTest, ATotalTakesNumbersAloneAndParHasFifteenDigits) {
  EXPECT_EQ(LineTotal("2.5", "4.00 each"), 10);
  for (const char* text : {"", " ", "x", "2 each"})
    EXPECT_EQ(ErrorOf([&] { LineTotal(text, "1"); }), 13) << text;
  EXPECT_FALSE(GoesOverPar("0.30", "0.10", "0.20"));
  EXPECT_TRUE(GoesOverPar("0.30", "0.10", "0.21"));
}

TEST(ParSheetTest, IdsRunFromOneToThirtyThousand) {
  struct Drawn : Chance {
    double next = 0;
    double Next() override { return next; }
  } chance;
  for (const auto& [drawn, id] : {std::pair{0.0, 1}, {0.5, 15001}, {0.99999999999, 30000}}) {
    chance.next = drawn;
    EXPECT_EQ(NewOrderId(chance), id);
  }
}

}  // namespace
}  // namespace kvi::test
