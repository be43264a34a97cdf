#include "items/ItemCosts.h"

#include <gtest/gtest.h>

#include "support/BareScreen.h"

namespace kvi::test {
namespace {

// The rules on a working item without a window or a database.
class ItemCostsTest : public ::testing::Test {
 protected:
  void Recalc() {
    RecalcItemCosts(item, [this](const std::string& number, double quantity, double cost) {
      askedFor = number;
      return quantity * cost;
    });
  }

  BareScreen screen;
  WorkingItem item{screen, WorkingItem::Vendors::WithPurchaseSize};
  std::string askedFor;
};

TEST_F(ItemCostsTest, EachUnitsCostComesFromTheRoundedCostAbove) {
  const struct {
    const char *cost, *hi_qty, *hu_qty, *hp_cost_per, *hi_cost_per, *hu_cost_per;
  } cases[] = {{"100", "12", "10", "100.0000", "8.3333", "0.8333"},
               {"100", "3", "7", "100.0000", "33.3333", "4.7619"},
               {"1.23456", "1", "1", "1.2346", "1.2346", "1.2346"},
               {"100", "0", "10", "100.0000", "0.00", "0.0000"},
               {"100", "-2", "-1", "100.0000", "0.00", "0.00"},
               {"100", "10", "", "100.0000", "10.0000", "0.00"},
               {"$5", "2", "2", "0.0000", "0.0000", "0.0000"},
               {"1,250", "1", "4", "1.0000", "1.0000", "0.2500"},
               {"1234567.5", "1", "1", "1234567.5000", "1234567.5000", "1234567.5000"}};
  for (const auto& [cost, hi, hu, purchased, inventoried, used] : cases) {
    item.hp_cost_per.Text = cost;
    item.hi_qty.Text = hi;
    item.hu_qty.Text = hu;
    Recalc();
    EXPECT_EQ(
        item.hp_cost_per.Text() + " " + item.hi_cost_per.Text() + " " + item.hu_cost_per.Text(),
        std::string(purchased) + " " + inventoried + " " + used)
        << cost << " by " << hi << " by " << hu;
  }
}

TEST_F(ItemCostsTest, SpeaksInThePartsOwnUnits) {
  item.i_num.Text = " 7 ";
  item.how_purchased.Text = "case";
  item.how_inv.Text = "box";
  item.how_used.Text = "seal";
  item.hi_qty.Text = "012";
  item.hu_qty.Text = "10x";
  item.hp_cost_per.Text = "2.5";
  item.qty_on_hand.Text = "4";
  Recalc();
  EXPECT_EQ(askedFor, " 7 ") << "the number as it stands";
  EXPECT_EQ(item.valuation.Text(), "10.00");
  const std::pair<const Label*, const char*> captions[] = {
      {&item.HowUsedFormula, "1 box = 10x seal(s)"},
      {&item.HowInvFormula, "1 case = 012 box(s)"},
      {&item.HowPurchasedFormula, ""},
      {&item.lblCostHowUsed, "Cost Per seal:"},
      {&item.lblCostHowInv, "Cost Per box:"},
      {&item.lblCostHowPurchased, "Cost Per case:"},
      {&item.Label7, "Current Inv. On-Hand (case):"},
      {&item.Label16, "Valuation:"},
      {&item.Label5, "Re-Order Level (case):"},
      {&item.Label11, "Par Level (case):"},
      {&*item.LblPurchaseSize, "Price per case:"}};
  for (const auto& [label, caption] : captions) EXPECT_EQ(label->Caption(), caption);
}

TEST_F(ItemCostsTest, TheLevelButtonsShowThePlainProductUntilTheNextRecompute) {
  item.hp_cost_per.Text = "2.0000";
  item.qty_on_hand.Text = "13.50";
  AddOnHand(item);
  EXPECT_EQ(item.qty_on_hand.Text(), "14.5");
  EXPECT_EQ(item.valuation.Text(), "$29.00");
  item.qty_on_hand.Text = "0";
  MinusOnHand(item);
  EXPECT_EQ(item.qty_on_hand.Text(), "-1");
  EXPECT_EQ(item.valuation.Text(), "-$2.00");
  Recalc();
  EXPECT_EQ(item.valuation.Text(), "-2.00");
}

}  // namespace
}  // namespace kvi::test
