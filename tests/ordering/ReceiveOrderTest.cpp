#include "ordering/OrderStory.h"

namespace kvi::test {
namespace {

constexpr const char* kReceive =
    "This option will receive an order and update levels based on the values listed in the "
    "'Quantity Received' column.\n\nUse this button after you have verified that the order you "
    "placed was shipped and received.  Once complete, this order will be removed so that you do "
    "not inadvertently add to twice.\n\nContinue?";
constexpr const char* kUpdateGroups =
    "You made a change to one or more item(s).  Should we update the part groups?";

class ReceiveOrderTest : public OrderStory {
 protected:
  void ExpectReceipt(Answer groups = Answer::No) {
    ExpectBox(kReceive, Answer::Yes, "Par Order Sheet");
    ExpectBox(kUpdateGroups, groups, "Speedy Update");
  }
  void ExpectNoMoreOrders() {
    ExpectBox("No more orders exist.  Create a new order, or Exit.", Answer::Ok, "Par Sheet Order");
  }
  std::string Purchases() {
    return stockroom.Rows(
        "SELECT inv_id, p_qty, price, o_qty, o_price, TRANS_NUM, p_date, pcenter "
        "FROM Hist_Purchases");
  }
};

TEST_F(ReceiveOrderTest, TheGoodsAreBookedAndTheOrdersGoOneByOne) {
  Receive([&] {
    EXPECT_EQ(Screen().orders.Text(), "Weekly");
    EXPECT_EQ(GridText(Grid(), 9, 13),
              "4.00|0.00|12.00|0.00|0.00\n4.00|3.00|2.00|3.00|2.00\n"
              "5.00|12.00|2.50|12.00|2.50\n");
    EXPECT_EQ(Grid().ColWidth(12) + Grid().ColWidth(13), 1600);
    EXPECT_EQ(Grid().ColWidth(14), 0);
    stockroom.user().Tick(Screen().ShowAboveZero);
    EXPECT_EQ(Column(4), "9\n100\n");
    Type(2, 10, "10");
    Type(2, 11, "2.60");
    ExpectReceipt();
    Click(Screen().save);
    EXPECT_EQ(Screen().orders.Text(), "Invoice:4711");
    EXPECT_EQ(GridText(Grid(), 4, 13),
              "10|wide|case|10.00|5.00|4.00|1.00|12.00|1.00|\n"
              "100|thin|each|5.50|5.00|15.00|8.00|2.00|8.00|2.00\n");
    ExpectReceipt();
    ExpectNoMoreOrders();
    Click(Screen().save);
    EXPECT_EQ(Screen().TabStrip1.Tab(), 0);
    EXPECT_EQ(Grid().Text(1, 10), "5.00");
  });
  EXPECT_EQ(Purchases(),
            "9|3|2|3|2|260309140506|3/9/2026|0\n100|10|2.6|12|2.5|260309140506|3/9/2026|0\n"
            "10|1|12|1|0|Invoice:4711|3/9/2026|0\n100|8|2|8|2|Invoice:4711|3/9/2026|0\n");
  EXPECT_EQ(Items(), "10|5|12|60\n9|7|2|14\n100|23|2|46\n");
  EXPECT_EQ(stockroom.Rows("SELECT pso_id FROM PSO_Detail"), "9\n") << "the other center's";
}

TEST_F(ReceiveOrderTest, EveryListedPartTakesTheCostBesideIt) {
  Receive([&] {
    Type(1, 11, "13");
    Type(3, 10, "0");
    ExpectReceipt();
    Click(Screen().save);
  });
  EXPECT_EQ(Items(), "10|4|13|52\n9|7|2|14\n100|5|2.5|12.5\n");
  EXPECT_EQ(stockroom.Rows("SELECT inv_id FROM Hist_Purchases"), "9\n");
}

TEST_F(ReceiveOrderTest, ComingBackFromTheInvoicesOpensTheOrderAgain) {
  stockroom.Fill("Invoice", "Vendor | Number\n Acme | 1");
  Receive([&] {
    Choose(Screen().orders, "Invoice:4711");
    stockroom.desktop.ExpectScreen(
        "KVI_Invoice", [&] { stockroom.user().CloseWindow(*stockroom.App().screens.Top()); });
    Click(Screen().ei);
    EXPECT_EQ(Screen().orders.Text(), "Invoice:4711");
    EXPECT_EQ(Column(10), "1.00\n0.00\n8.00\n") << "no suggestions under what was received";
    EXPECT_EQ(Grid().ColWidth(12), 800);
    EXPECT_EQ(Grid().ColWidth(14), 0);
  });
}

TEST_F(ReceiveOrderTest, OfTwoDesksTheSecondBooksNothing) {
  jet::Database other = OtherDesk();
  Receive([&] {
    ExpectBox(kReceive, Answer::Yes, "Par Order Sheet");
    stockroom.desktop.Meanwhile([&] {
      jet::Recordset order = OrderAt(other, 0, 0);
      ClaimOrder(order, stockroom.clock.Now());
    });
    ExpectBox("An error has occured: 3197-" + DescriptionOf(3197));
    Click(Screen().save);
    ExpectBox(kReceive, Answer::Yes, "Par Order Sheet");
    stockroom.desktop.Meanwhile([&] {
      jet::Recordset order = OrderAt(other, 0, 0);
      DeleteOrder(other, order);
    });
    ExpectBox("An error has occured: 3167-" + DescriptionOf(3167));
    Click(Screen().save);
    // The order that another desk took away shifts the others: the list is read again.
    stockroom.user().Tick(Screen().ShowAboveZero);
    EXPECT_EQ(Screen().orders.Text(), "Invoice:4711");
    EXPECT_EQ(Column(4), "10\n100\n");
  });
  EXPECT_EQ(Purchases(), "");
  EXPECT_EQ(Items(), "10|4|12|0\n9|4|2.346|0\n100|5|3|0\n");
}

// A lock asks; the quantities of what is in the file by then are gone from the list.
TEST_F(ReceiveOrderTest, ALockAsksAndNothingIsBookedTwice) {
  jet::Database other = OtherDesk();
  jet::Recordset theirs = other.OpenRecordset("SELECT * FROM I_Master WHERE inv_id = '100'");
  Receive([&] {
    ExpectBox(kReceive, Answer::Yes, "Par Order Sheet");
    stockroom.desktop.Meanwhile([&] { theirs.Edit(); });
    ExpectLock(Answer::No);
    Click(Screen().save);
    EXPECT_EQ(Column(10), "0.00\n3.00\n12.00\n");
    ExpectBox(kReceive, Answer::Yes, "Par Order Sheet");
    ExpectLock(Answer::Yes);
    stockroom.desktop.Meanwhile([&] {
      theirs.Set("qty_on_hand", 6);
      theirs.Update();
    });
    ExpectBox(kUpdateGroups, Answer::No, "Speedy Update");
    Click(Screen().save);
  });
  EXPECT_EQ(stockroom.Rows("SELECT inv_id, p_qty FROM Hist_Purchases"), "9|3\n100|12\n");
  EXPECT_EQ(stockroom.Rows("SELECT qty_on_hand FROM I_Master WHERE inv_id = '100'"), "18\n");
}

TEST_F(ReceiveOrderTest, RemoveTakesTheOpenedOrderAndOnTheFirstTabTheFirst) {
  Receive([&] {
    Choose(Screen().orders, "Invoice:4711");
    Click(Screen().remove);
    EXPECT_EQ(stockroom.Rows("SELECT pso_name FROM PSO_Master WHERE pcenter = 0"), "Weekly\n");
    EXPECT_EQ(Screen().orders.Text(), "Weekly");
    stockroom.user().Choose(Screen().TabStrip1, 0);
    Click(Screen().remove);
    EXPECT_EQ(Grid().Text(3, 14), "0.00");
    ExpectBox("There are no orders to receive yet.  You will need to create one first!", Answer::Ok,
              "Par Sheet Order");
    stockroom.user().Choose(Screen().TabStrip1, 1);
    EXPECT_EQ(Screen().TabStrip1.Tab(), 0);
  });
  EXPECT_EQ(stockroom.Rows("SELECT pso_id FROM PSO_Detail"), "9\n");
}

}  // namespace
}  // namespace kvi::test
