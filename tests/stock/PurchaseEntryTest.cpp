#include "stock/UpdateStory.h"

namespace kvi::test {
namespace {

class PurchaseEntryTest : public UpdateStory {
 protected:
  void ExpectGroupQuestion() { ExpectBox(kUpdateGroups, Answer::No, "Speedy Update"); }
  std::string Purchases() {
    return stockroom.Rows("SELECT inv_id, p_qty, price, TRANS_NUM FROM Hist_Purchases");
  }
};

TEST_F(PurchaseEntryTest, ADeliveryBooksLevelsCostsAndPurchaseRows) {
  Buying([&] {
    EXPECT_EQ(Grid().Text(0, 7) + "|" + Grid().Text(0, 8), "Quantity To Add|Cost Per");
    EXPECT_EQ(GridText(Grid(), 6, 8), "case|0|12.00\nbag|0|2.35\neach|0|3.00\n");
    EXPECT_EQ(Grid().ColWidth(9) + Grid().ColWidth(10), 0);
    Type(1, 7, "2");
    Type(1, 8, "13.5");
    Type(3, 7, "-1");
    Type(3, 8, "");
    ExpectGroupQuestion();
    Click(Screen().save);
    EXPECT_EQ(GridText(Grid(), 7, 8), "0|13.5\n0|2.35\n0|\n") << "the costs stay as typed";
    EXPECT_EQ(Items("qty_on_hand, cost_per, valuation"), "6.99|13.5|94.365\n100|2.35|235\n4|0|0\n")
        << "an untouched line takes its rounded cost";
    Type(1, 7, "1");
    ExpectGroupQuestion();
    Click(Screen().save);
  });
  EXPECT_EQ(Purchases(), "10|2|13.5|Spdy:2603091405\n10|1|13.5|Spdy:2603091405\n");
  EXPECT_EQ(stockroom.Rows("SELECT p_date, pcenter, o_qty, o_price FROM Hist_Purchases WHERE "
                           "p_qty = 2"),
            "3/9/2026|Null|Null|Null\n");
}

TEST_F(PurchaseEntryTest, InInventoriedUnitsTheCostIsDividedAgain) {
  Buying([&] {
    stockroom.user().Choose(Screen().OptInventoried);
    EXPECT_EQ(GridText(Grid(), 6, 8), "box|0|1.00\neach|0|2.35\neach|0|3.00\n");
    Type(1, 7, "24");
    Type(1, 8, "1.20");
    ExpectGroupQuestion();
    Click(Screen().save);
  });
  EXPECT_EQ(Items("qty_on_hand, cost_per"), "6.99|0.1\n100|2.35\n5|3\n");
  EXPECT_EQ(Purchases(), "10|2|0.1|Spdy:2603091405\n");
}

TEST_F(PurchaseEntryTest, AgreeingUpdatesThePartGroups) {
  stockroom.Fill("R_Master", "rec_id | name | pcenter | cost\n G | Kit | 0 | 0");
  stockroom.Fill("Inv_Recipe", "rec_id | inv_id | desc | qty | cost_per\n G | 100 | | 2 | 0");
  Buying([&] {
    ExpectBox(kUpdateGroups, Answer::Yes, "Speedy Update");
    ExpectBox(kCostQuestion, Answer::Yes);
    ExpectBox("Part Groups updated.");
    Click(Screen().save);
    EXPECT_NE(stockroom.Rows("SELECT cost FROM R_Master"), "0\n");
    Type(2, 7, "5");
    ExpectGroupQuestion();
    Click(Screen().save);
  });
  EXPECT_EQ(Purchases(), "9|5|2.35|Spdy:2603091405\n") << "also after the groups took the set";
}

TEST_F(PurchaseEntryTest, TheTabsShareTheGridAndForgetWhatWasTyped) {
  Update([&] {
    Sort("Location");
    Type(1, 8, "10");
    Click(Screen().rv);
    stockroom.user().Choose(Screen().TabStrip1, 0);
    EXPECT_EQ(Grid().Text(1, 8), "10") << "the tab that shows already";
    stockroom.user().Choose(Screen().TabStrip1, 1);
    EXPECT_EQ(GridText(Grid(), 4, 8),
              "100|thin|each|0|3.00\n10|wide|case|0|12.00\n9||bag|0|2.35\n");
    EXPECT_EQ(Color(1, 7) + Color(1, 8), 2 * kBrightCyan);
    EXPECT_FALSE(stockroom.user().Click(Screen().rv));
    Type(1, 7, "10");
    stockroom.user().Choose(Screen().TabStrip1, 0);
    EXPECT_EQ(GridText(Grid(), 7, 10),
              "5.00|5.00|0.0|0.0\n4.99|4.99|0.0|0.0\n100.00|100.00|0.0|0.0\n");
    EXPECT_EQ(Color(1, 7), kWhite);
    EXPECT_EQ(Color(1, 8), kBrightCyan);
    EXPECT_EQ(Grid().ColWidth(9), 750);
    EXPECT_FALSE(stockroom.user().TypeIntoCell(Grid(), 1, 7, "3"));
    stockroom.user().Choose(Screen().TabStrip1, 1);
  });
  Update([&] {
    EXPECT_EQ(Screen().TabStrip1.Tab(), 0) << "a new opening begins with the count";
    EXPECT_EQ(Grid().Text(1, 7), "4.99");
  });
}

TEST_F(PurchaseEntryTest, APartWithoutAUnitFactorIsMissingFromTheInventoriedUnitsAlone) {
  stockroom.Execute("UPDATE I_Master SET hi_qty = 0 WHERE inv_id = '9'");
  Buying([&] {
    stockroom.user().Choose(Screen().OptInventoried);
    EXPECT_EQ(GridText(Grid(), 4, 8), "10|wide|box|0|1.00\n100|thin|each|0|3.00\n");
    stockroom.user().Choose(Screen().OptPurchased);
    EXPECT_EQ(Numbers(), "10\n9\n100\n");
  });
}

// What stands in the file is marked on the screen, so that no line is ever booked twice.
TEST_F(PurchaseEntryTest, ASaveThatStopsOrACostingThatFailsBooksNothingTwice) {
  stockroom.Fill("R_Master", "rec_id | name | pcenter | cost\n G | Kit | 0 | 0");
  stockroom.Fill("Inv_Recipe", "rec_id | inv_id | desc | qty | cost_per\n G | 100 | | 2 | 0");
  jet::Database other = OtherDesk();
  jet::Recordset theirs = other.OpenRecordset("SELECT * FROM I_Master WHERE inv_id = '100'");
  Buying([&] {
    stockroom.user().Choose(Screen().OptInventoried);
    for (const int row : {1, 2}) Type(row, 7, "12");
    other.Execute("UPDATE I_Master SET hi_qty = 0 WHERE inv_id = '9'");
    ExpectBox("An error has occurred saving data.11 " + DescriptionOf(11) + kOneSaved +
                  "  Their quantity is 0 now, so that saving again adds nothing twice.",
              Answer::Ok, "KV Inventory Save Changes");
    Click(Screen().save);
    EXPECT_EQ(GridText(Grid(), 7, 7), "0\n12\n0\n");
    other.Execute("UPDATE I_Master SET hi_qty = 1 WHERE inv_id = '9'");
    ExpectBox(kUpdateGroups, Answer::Yes, "Speedy Update");
    ExpectBox(kCostQuestion, Answer::Yes);
    stockroom.desktop.Meanwhile([&] { theirs.Edit(); });
    ExpectBox("3260 " + DescriptionOf(3260));
    Click(Screen().save);
    theirs.CancelUpdate();
    EXPECT_EQ(GridText(Grid(), 7, 7), "0\n0\n0\n");
  });
  EXPECT_EQ(stockroom.Rows("SELECT inv_id, p_qty FROM Hist_Purchases"), "10|1\n9|12\n");
}

// Both desks' quantities count: the level is read anew after the wait.
TEST_F(PurchaseEntryTest, AnAdditionAddsToWhatAnotherDeskSavedMeanwhile) {
  jet::Database other = OtherDesk();
  jet::Recordset theirs = other.OpenRecordset("SELECT * FROM I_Master WHERE inv_id = '100'");
  Buying([&] {
    Type(3, 7, "2");
    other.Execute("UPDATE I_Master SET qty_on_hand = 10 WHERE inv_id = '100'");
    theirs.MoveFirst();
    theirs.Edit();
    ExpectLock(Answer::Yes);
    stockroom.desktop.Meanwhile([&] {
      theirs.Set("qty_on_hand", 20);
      theirs.Update();
    });
    ExpectGroupQuestion();
    Click(Screen().save);
  });
  EXPECT_EQ(stockroom.Rows("SELECT qty_on_hand, valuation FROM I_Master WHERE inv_id = '100'"),
            "22|66\n");
  EXPECT_EQ(Purchases(), "100|2|3|Spdy:2603091405\n");
}

}  // namespace
}  // namespace kvi::test
