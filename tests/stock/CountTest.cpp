#include "stock/KVI_Invoice.h"
#include "stock/UpdateStory.h"

namespace kvi::test {
namespace {

using CountTest = UpdateStory;

TEST_F(CountTest, ACountFromItsFirstCellToTheSavedLevels) {
  Update([&] {
    EXPECT_EQ(GridText(Grid(), 1, 10),
              "Belt|Belts|Bin 2|10|wide|case|4.99|4.99|0.0|0.0\n"
              "Ring|Seals|Bin 3|9||bag|100.00|100.00|0.0|0.0\n"
              "Seal|Belts|Bin 1|100|thin|each|5.00|5.00|0.0|0.0\n");
    EXPECT_EQ(Screen().StatusBar1.PanelText(1), "1 of 3 records");
    Sort("Location");
    EXPECT_EQ(Numbers(), "100\n10\n9\n");
    Type(1, 8, "10");
    Type(2, 8, "4.99");
    Type(3, 8, "104");
    Click(Screen().rv);
    EXPECT_EQ(GridText(Grid(), 7, 10), "5.00|10|5.0|50.0\n4.99|4.99|0.0|0.0\n100.00|104|4.0|3.8\n");
    EXPECT_EQ(Color(1, 10), kBrightRed);
    EXPECT_EQ(Color(3, 10), kWhite) << "under the limit";
    Click(Screen().sva);
    EXPECT_EQ(Numbers(), "10\n9\n100\n");
    Click(Screen().svd);
    EXPECT_EQ(Numbers(), "100\n9\n10\n");
    EXPECT_EQ(Color(2, 10), kBrightRed) << "a sort colours every variance";
    EXPECT_EQ(Color(2, 9), kBrightRed);
    EXPECT_EQ(Color(3, 10), kWhite);
    EXPECT_EQ(Color(1, 8), kBrightCyan);
    Click(Screen().print_lab);
    Click(Screen().save);
    EXPECT_EQ(GridText(Grid(), 7, 10),
              "10.00|10.00|0.0|0.0\n4.99|4.99|0.0|0.0\n104.00|104.00|0.0|0.0\n");
    EXPECT_EQ(Color(1, 10), kWhite);
  });
  EXPECT_EQ(Items("inv_id, qty_on_hand, valuation"), "10|4.99|59.88\n9|104|243.984\n100|10|30\n")
      << "every listed part is valued anew, touched or not";
  EXPECT_EQ(stockroom.Rows("SELECT inv_id FROM Hist_Purchases"), "");
  EXPECT_EQ(stockroom.Rows("SELECT valuation FROM I_Master WHERE inv_id = '11'"), "7\n");
  ExpectOnPaper({"14 | Harbour Works", "| Update Inventory", "| 3/9/2026", "| 50.0", "| Page: 1"});
}

TEST_F(CountTest, RedStaysUntilALoadAndAZeroCountHasNoVariance) {
  Update([&] {
    Type(2, 8, "0");
    Type(3, 8, "10");
    Click(Screen().rv);
    EXPECT_EQ(Grid().Text(2, 10) + "|" + Grid().Text(3, 10), "0.0|50.0");
    EXPECT_EQ(Color(2, 10), kWhite);
    Type(3, 8, "5");
    Click(Screen().rv);
    EXPECT_EQ(Grid().Text(3, 10), "0.0");
    EXPECT_EQ(Color(3, 10), kBrightRed);
    stockroom.user().Type(Screen().var_perc, "");
    Click(Screen().rv);
    EXPECT_EQ(Color(1, 10), kBrightRed) << "with a blank limit every count is over it";
    EXPECT_EQ(Color(2, 10), kWhite);
    Sort("#");
    EXPECT_EQ(Numbers(), "10\n100\n9\n") << "as texts";
    EXPECT_EQ(Color(1, 10), kWhite);
    stockroom.user().Type(Screen().var_perc, "7.5");
  });
  EXPECT_EQ(stockroom.App().settings.AcceptableVariance, 7.5);
  EXPECT_TRUE(stockroom.Exit());
  EXPECT_EQ(stockroom.Get("AcceptableVariance"), "7.5");
}

TEST_F(CountTest, BelowTheReorderPointIsJudgedByTheStoredLevelInBothUnits) {
  Update([&] {
    stockroom.user().Choose(Screen().show_ro);
    EXPECT_EQ(Numbers(), "10\n") << "a part at its level is not below it";
    stockroom.user().Choose(Screen().OptInventoried);
    EXPECT_EQ(GridText(Grid(), 6, 8), "box|59.88|59.88\n");
    EXPECT_EQ(Grid().Text(0, 6), "How Inventoried");
    Type(1, 8, "12");
    Click(Screen().save);
    EXPECT_EQ(GridText(Grid(), 7, 8), "12.00|12.00\n");
    Type(1, 8, "60");
    Click(Screen().save);
    EXPECT_EQ(Numbers(), "");
    stockroom.user().Choose(Screen().show_all);
    EXPECT_EQ(Screen().StatusBar1.PanelText(1), "1 of 3 records");
  });
  EXPECT_EQ(Items("inv_id, qty_on_hand, valuation"), "10|5|60\n9|100|7\n100|5|7\n");
}

TEST_F(CountTest, BlanksCountAsZeroAndOnlyNumbersIntoTheCountAreTaken) {
  Update([&] {
    Type(1, 8, "");
    Type(2, 8, "2e2");
    EXPECT_EQ(Screen().StatusBar1.PanelText(2).find("2 counts not saved"), 0U);
    for (const char* text : {"plenty", "6 or 7", "1,5", "12ab"}) {
      EXPECT_FALSE(stockroom.user().TypeIntoCell(Grid(), 3, 8, text)) << text;
      EXPECT_NE(Screen().StatusBar1.PanelText(2).find(text), std::string::npos);
    }
    for (const int col : {1, 4, 6, 7, 9, 10})
      EXPECT_FALSE(stockroom.user().TypeIntoCell(Grid(), 1, col, "1")) << col;
    Click(Screen().save);
    EXPECT_EQ(Screen().StatusBar1.PanelText(2), "3 parts saved");
    Type(2, 8, "7");
    stockroom.user().ClickHeading(Grid(), 4);
    EXPECT_EQ(Screen().SortCombo.Text(), "#");
    EXPECT_EQ(Screen().StatusBar1.PanelText(2), "1 typed count was not saved.");
  });
  EXPECT_EQ(Items("qty_on_hand, valuation"), "0|0\n200|469.2\n5|15\n");
}

TEST_F(CountTest, LeavingAsksForWhatWasTypedAndForVariancesOnPaper) {
  const auto count = [&] {
    Type(3, 8, "10");
    Click(Screen().rv);
    Click(Screen().print_lab);
  };
  Update(count, [&] {
    ExpectBox(kSaveBeforeExiting, Answer::No);
    ExpectBox(kPrintBeforeExiting, Answer::Yes);
  });
  EXPECT_EQ(stockroom.desktop.documents.size(), 2U);
  EXPECT_EQ(Items("qty_on_hand"), "4.99\n100\n5\n");
  Update(count, [&] { ExpectBox(kSaveBeforeExiting, Answer::Yes); });
  EXPECT_EQ(Items("qty_on_hand"), "4.99\n100\n10\n") << "the save takes the variances away";
  Update([&] { EXPECT_EQ(Color(3, 10), kWhite); });
}

TEST_F(CountTest, WithoutTheWriteRightWhatWasTypedIsLost) {
  ASSERT_TRUE(stockroom.Start("/S:RRRR"));
  Update([&] {
    Type(3, 8, "10");
    ExpectBox(kReadOnly);
    Click(Screen().save);
    EXPECT_EQ(Grid().Text(3, 8), "5.00");
  });
  EXPECT_EQ(Items("valuation"), "7\n7\n7\n");
}

TEST_F(CountTest, AnEmptyProfitCenterSaysSo) {
  stockroom.Execute("DELETE * FROM I_Master WHERE pcenter = 0");
  ExpectBox("No items in the system.  Click on the '+' icon to add a new item.");
  Update([&] {
    EXPECT_EQ(Grid().MaxRows(), 0);
    for (ActionLabel* action : {&Screen().rv, &Screen().svd, &Screen().save}) {
      if (action == &Screen().save)
        ExpectBox("No items in the system.  Click on the '+' icon to add a new item.");
      Click(*action);
    }
  });
}

TEST_F(CountTest, APartRemovedByAnotherDeskIsPassedOver) {
  jet::Database other = OtherDesk();
  Update([&] {
    Type(1, 8, "6");
    Type(3, 8, "8");
    other.Execute("DELETE * FROM I_Master WHERE inv_id = '9'");
    other.Execute("UPDATE I_Master SET name = 'Seal ring', qty_on_hand = 1 WHERE inv_id = '100'");
    Click(Screen().save);
    EXPECT_EQ(Numbers(), "10\n100\n");
  });
  EXPECT_EQ(Items("name, qty_on_hand, valuation"), "Belt|6|72\nSeal ring|8|24\n");
}

// The rows before the part without a unit factor are written, the others are not.
TEST_F(CountTest, WithoutAUnitFactorASaveStopsAndTheScreenGoesOn) {
  jet::Database other = OtherDesk();
  Update([&] {
    stockroom.user().Choose(Screen().OptInventoried);
    Type(1, 8, "24");
    Type(3, 8, "9");
    other.Execute("UPDATE I_Master SET hi_qty = 0 WHERE inv_id = '9'");
    ExpectBox("An error has occurred saving data.11 " + DescriptionOf(11) + kOneSaved, Answer::Ok,
              "KV Inventory Save Changes");
    Click(Screen().save);
    EXPECT_EQ(Items("qty_on_hand, valuation"), "2|24\n100|7\n5|7\n");
    other.Execute("UPDATE I_Master SET hi_qty = 1 WHERE inv_id = '9'");
    EXPECT_EQ(Grid().Text(3, 8), "9");
    Click(Screen().save);
    EXPECT_EQ(stockroom.desktop.Pointer(), MousePointer::Default);
  });
  EXPECT_EQ(Items("qty_on_hand, valuation"), "2|24\n100|234.6\n9|27\n");
}

TEST_F(CountTest, ALockThatLastsAsksAndNoGivesTheSaveUp) {
  jet::Database other = OtherDesk();
  jet::Recordset theirs = other.OpenRecordset("SELECT * FROM I_Master WHERE inv_id = '100'");
  Update([&] {
    Type(3, 8, "8");
    theirs.Edit();
    ExpectLock(Answer::Yes);
    ExpectLock(Answer::No);
    Click(Screen().save);
    EXPECT_EQ(Items("valuation"), "7\n7\n7\n");
    ExpectLock(Answer::Yes);
    stockroom.desktop.Meanwhile([&] {
      theirs.Set("location", "Bin 8");
      theirs.Set("qty_on_hand", 77);
      theirs.Update();
    });
    Click(Screen().save);
  });
  EXPECT_EQ(Items("location, qty_on_hand, valuation"),
            "Bin 2|4.99|59.88\nBin 3|100|234.6\nBin 8|8|24\n")
      << "the count stands over the other desk's level, and leaves its other fields";
}

TEST_F(CountTest, FindAndFirstLettersMoveTheCellAndLeaveTheTypingAlone) {
  Update(
      [&] {
        Sort("Location");
        Type(1, 8, "77");
        Find(Screen().find_lab, "BIN 3");
        EXPECT_EQ(Grid().ActiveRow(), 3);
        EXPECT_EQ(Screen().StatusBar1.PanelText(1), "3 of 3 records");
        EXPECT_EQ(Grid().Text(1, 8), "77");
        const struct {
          int col;
          const char* key;
          int row;
        } presses[] = {{1, "S", 1}, {2, "S", 3}, {5, "w", 2},
                       {4, "9", 2}, {6, "e", 2}, {1, "z", 2}};
        for (const auto& [col, key, row] : presses) {
          stockroom.user().GoToCell(Grid(), Grid().ActiveRow(), col);
          stockroom.user().PressKey(Grid(), key);
          EXPECT_EQ(Grid().ActiveRow(), row) << key << " in column " << col;
        }
      },
      [&] { ExpectBox(kSaveBeforeExiting, Answer::No); });
}

TEST_F(CountTest, ComingBackFromTheInvoicesLoadsTheGridAgain) {
  auto& invoices = stockroom.App().Get<KVI_Invoice>();
  Update([&] {
    Type(1, 8, "77");
    ExpectBox("No invoices in the system.  Click on the 'new' menu option to add a new invoices.");
    stockroom.desktop.ExpectScreen("KVI_Invoice", [&] {
      stockroom.Execute("UPDATE I_Master SET qty_on_hand = 8 WHERE inv_id = '10'");
      Click(invoices.exit_lab);
    });
    Click(Screen().ei);
    EXPECT_EQ(Grid().Text(1, 8), "8.00");
  });
}

TEST_F(CountTest, ExportsTheGridAsItStands) {
  Update([&] {
    EXPECT_TRUE(ExportedBy(Screen().m_export).starts_with("Name\tCategory\tLocation\tNumber\t"));
  });
}

}  // namespace
}  // namespace kvi::test
