#include "ordering/OrderStory.h"

namespace kvi::test {
namespace {

constexpr const char* kNamePrompt =
    "Saving this data will create a 'template order' which you can later 'receive'.  Please enter "
    "the name of this order (or use the default name) or hit cancel.";

class PlaceOrderTest : public OrderStory {
 protected:
  void ExpectName(std::optional<std::string> answer) {
    stockroom.desktop.ExpectInput(kNamePrompt, std::move(answer), "Par Sheet Order");
  }
  std::string Lines(int id) {
    return stockroom.Rows(
        "SELECT pso_inv_id, pso_qty, pso_price, pcenter FROM PSO_Detail WHERE "
        "pso_id = " +
        std::to_string(id));
  }
};

TEST_F(PlaceOrderTest, TheParSheetShowsWhatIsMissingAndWhatIsOnOrder) {
  Order([&] {
    EXPECT_EQ(GridText(Grid(), 4, 14),
              "10|wide|case|10.00|5.00|4.00|6.00|12.00|||1.00\n"
              "9||bag|4.00|2.00|4.00|0.00|2.35|||3.00\n"
              "100|thin|each|5.50|5.00|5.00|0.50|3.00|||20.00\n");
    EXPECT_EQ(Color(1, 9), kBrightRed);
    EXPECT_NE(Color(3, 9), kBrightRed) << "at the re-order level is not below it";
    EXPECT_EQ(Color(1, 10), kBrightCyan);
    EXPECT_FALSE(stockroom.user().TypeIntoCell(Grid(), 1, 11, "1"));
    EXPECT_EQ(Grid().ColWidth(12) + Grid().ColWidth(13), 0);
    stockroom.user().Tick(Screen().ShowAboveZero);
    EXPECT_EQ(Column(4), "10\n100\n");
    EXPECT_EQ(Color(1, 9), kBrightRed);
    EXPECT_NE(Color(2, 9), kBrightRed);
    Choose(Screen().SortCombo, "Location");
    EXPECT_EQ(Column(4), "100\n10\n");
    EXPECT_NE(Color(1, 9), kBrightRed) << "the red goes with its part";
    stockroom.user().Tick(Screen().ShowAboveZero);
    Choose(Screen().VendorCombo, "Bolt & Co");
    EXPECT_EQ(GridText(Grid(), 4, 4), "9\n");
    EXPECT_EQ(Grid().Text(1, 14), "3.00");
  });
  EXPECT_EQ(stockroom.App().CurrentOrderVendor, "Bolt & Co");
}

TEST_F(PlaceOrderTest, TheOptionsChangeTheQuantitiesAndTheTotalWaitsForItsButton) {
  Order(
      [&] {
        ExpectBox(
            "This option will round all suggested reorder quantities \nto the next higher "
            "integer. Continue?",
            Answer::Yes);
        Click(Screen().MB_RoundUp);
        EXPECT_EQ(Column(10), "6.00\n0.00\n1.00\n");
        Click(Screen().ut);
        EXPECT_EQ(Screen().ordertotal.Text(), "75.00");
        EXPECT_EQ(Grid().Format(3, 7).ForeColor, kBrightMagenta) << "6 over par 5.5";
        EXPECT_NE(Grid().Format(1, 7).ForeColor, kBrightMagenta);
        stockroom.desktop.ExpectInput(
            "Enter the percentage amount to adjust suggested reorder quantities by (examples: +5 "
            "increases quantities by five percent, -10 decreases quantities by ten percent and 0 "
            "causes no change) :",
            "+50", "Kestvar Inventory");
        Click(Screen().MB_Adjust);
        EXPECT_EQ(Column(10), "9.00\n.00\n1.50\n");
        ExpectBox(
            "This option will subtract the amount on order from the 'suggested order'.  This "
            "assumes that you should reduce your to-be-created order by the amount you are "
            "waiting for.  Note - any suggested orders less than 0 will be set to 0.\nContinue?",
            Answer::Yes);
        Click(Screen().m_sub_oo);
        EXPECT_EQ(Column(10), "8.00\n0.00\n0.00\n");
        Type(2, 10, "");
        ExpectBox("13 " + DescriptionOf(13));
        Click(Screen().ut);
        EXPECT_EQ(Screen().ordertotal.Text(), "75.00") << "as it was";
        ExpectBox("This option will make all suggested reorder quantities 0.\nContinue?",
                  Answer::No);
        Click(Screen().m_zero);
        EXPECT_EQ(Grid().Text(1, 10), "8.00");
      },
      [&] { ExpectBox("Changes have been made.  Save before exiting?", Answer::No); });
}

TEST_F(PlaceOrderTest, AnOrderIsSavedUnderANameWithItsLines) {
  Order([&] {
    Type(1, 10, "-2");
    Type(2, 10, "");
    ExpectName(std::string(60, 'n'));
    ExpectBox("Order complete.", Answer::Ok, "Par Sheet Order");
    Click(Screen().save);
    EXPECT_EQ(Column(10), "6.00\n0.00\n0.50\n") << "suggested anew";
    EXPECT_EQ(Grid().Text(1, 14), "-1.00");
    Type(1, 10, "7");
    ExpectName(std::nullopt);
    Click(Screen().save);
    EXPECT_EQ(Grid().Text(1, 10), "6.00") << "cancelled, and suggested anew all the same";
  });
  EXPECT_EQ(
      stockroom.Rows("SELECT pso_name, pso_date, pcenter FROM PSO_Master WHERE pso_id = 15001"),
      std::string(50, 'n') + "|3/9/2026|0\n");
  EXPECT_EQ(Lines(15001), "10|-2|12|0\n100|0.5|3|0\n");
}

TEST_F(PlaceOrderTest, LeavingTheGridAsksOnceAndActionsAskNothing) {
  const std::string question =
      "Changes have been made to the spreadsheet.  Do you wish to save now?\nContinue?";
  Order([&] {
    Type(1, 10, "3");
    ExpectBox(question, Answer::No);
    stockroom.user().Tick(Screen().ShowAboveZero);
    Type(1, 10, "3");
    ExpectName("Mine");
    ExpectBox("Order complete.", Answer::Ok, "Par Sheet Order");
    Click(Screen().save);
  });
  EXPECT_EQ(Lines(15001), "10|3|12|0\n100|0.5|3|0\n");
}

// A vendor whose name breaks the statement would be kept from one start to the next.
TEST_F(PlaceOrderTest, AVendorWithAQuoteIsToldOnceAndFiltersNothing) {
  stockroom.Fill("Vendor_Info", "Name\n O'Neil");
  stockroom.Set("CurrentPsoVendor", "O'Neil");
  std::string seen;
  try {
    stockroom.App().CurrentDatabase.OpenRecordset(
        "SELECT * FROM I_Master WHERE where1 = 'O'Neil' AND  active = 'YES' and pcenter = 0 ORDER "
        "BY name");
  } catch (const RunTimeError& error) {
    seen = "3075 " + error.Description;
  }
  ExpectBox(seen);
  Order([&] {
    EXPECT_EQ(Screen().VendorCombo.Text(), "(All Vendors)");
    stockroom.user().Tick(Screen().ShowAboveZero);
    EXPECT_EQ(Column(4), "10\n100\n");
  });
}

TEST_F(PlaceOrderTest, WithoutTheWriteRightNothingIsSavedAndTheTypedCellsStay) {
  ASSERT_TRUE(stockroom.Start("/S:WWRW"));
  Order(
      [&] {
        Type(1, 10, "3");
        ExpectBox("Current security clearance is READ ONLY.\n\nChanges NOT Saved");
        Click(Screen().save);
        EXPECT_EQ(Grid().Text(1, 10), "3");
        ExpectBox("Current security clearance is READ ONLY.\n\nChanges NOT Saved");
        Click(Screen().remove);
      },
      [&] { ExpectBox("Changes have been made.  Save before exiting?", Answer::No); });
  EXPECT_EQ(stockroom.Rows("SELECT count(*) FROM PSO_Master"), "3\n");
}

}  // namespace
}  // namespace kvi::test
