#include <filesystem>

#include "base/RunTimeError.h"
#include "support/Story.h"
#include "usage/KVI_UsageAnalysis.h"

namespace kvi::test {
namespace {

constexpr const char* kHistory = "[Historical Inventory]";

// A month's end. Shown by name: "Belt" 10 and "Ring" 9; "Old" is inactive and "Far" in profit
// center 4. Locked are 1 March and 1 April 2025 of Stores, and 1 March of the Annex.
class UsageTest : public ScreenStory<KVI_UsageAnalysis> {
 protected:
  UsageTest() {
    stockroom.Fill("I_Master",
                   "inv_id | pcenter | name | category | how_purchased | cost_per | qty_on_hand | "
                   "active\n"
                   "10 | 0 | Belt | Seals | case | 2.346 | 4 | YES\n"
                   "9 | 0 | Ring | Belts | bag | 1 | 7.126 | yes\n"
                   "11 | 0 | Old | Belts | bag | 5 | 1 | NO\n"
                   "12 | 4 | Far | Belts | bag | 1 | 1 | YES");
  }
  void LockTwoPeriods() {
    stockroom.Fill("HI_Header", "F_Date | pcenter\n3/1/2025 | 0\n4/1/2025 | 0\n3/1/2025 | 4");
    stockroom.Fill("Historical Inventory",
                   "F_Date | Inv_ID | pcenter | Amount | Price\n"
                   "3/1/2025 | 10 | 0 | 10 | 2\n4/1/2025 | 10 | 0 | 4 | 2.5\n"
                   "3/1/2025 | 11 | 0 | 50 | 9\n3/1/2025 | 12 | 4 | 1 | 1\n"
                   "4/1/2025 | 9 | 0 | 3 | 1");
    stockroom.Fill("Hist_Purchases",
                   "inv_id | p_date | p_qty | price | pcenter\n10 | 3/15/2025 | 6 | 2.5 | 0");
  }

  void Analyse(
      const Acts& user, const Acts& opening = [] {}) {
    opening();
    Visit<KVI_UsageAnalysis>(&Main::Label2, user);
  }
  std::string Periods() {
    return stockroom.Rows("SELECT F_Date, pcenter FROM HI_Header ORDER BY pcenter, F_Date");
  }
  std::string Levels(const std::string& date) {
    return stockroom.Rows(
        "SELECT Inv_ID, Amount, Price FROM [Historical Inventory] WHERE pcenter = 0 AND F_Date = "
        "#" +
        date + "# ORDER BY Inv_ID");
  }
  bool IsCopied(const std::string& act) {
    return std::filesystem::exists(stockroom.CopyBefore(act));
  }
};

constexpr const char* kLockQuestion =
    "Are you sure you want to 'lock' the current inventory levels on-hand to the current "
    "date?\n\nThis should be done after each physical count is taken!";

TEST_F(UsageTest, AMonthIsReckonedInQuantitiesAndInMoney) {
  LockTwoPeriods();
  Analyse([&] {
    EXPECT_EQ(Grid().Text(0, 8), "Purchases from 3/1/2025-4/1/2025");
    EXPECT_EQ(Grid().Text(0, 9), "Per. Usage from 3/1/2025-4/1/2025");
    EXPECT_EQ(Grid().Text(0, 10), "Inventory as of 4/1/2025");
    EXPECT_EQ(GridText(Grid(), 3),
              "10|case|2.35|4.00|10.00|6.00|12.00|4.00\n"
              "9|bag|1.00|7.13|0.00|0.00|-3.00|3.00\n"
              "|||Inv. cost for per.:|23.50||22.00|12.40\n");
    EXPECT_EQ(Screen().hfc.Text(), "03/01/2025-04/01/2025 - Inventory Cost: $22.00");
    EXPECT_EQ(Grid().Format(1, 9).ForeColor, kBrightBlue);
    stockroom.user().Choose(Screen().sort_cate);
    EXPECT_EQ(GridText(Grid(), 1, 2), "Ring|Belts\nBelt|Seals\n|\n");
    stockroom.user().Choose(Screen().sort_inum);
    EXPECT_EQ(GridText(Grid(), 3, 3), "10\n9\n\n") << "numbers sort as texts";
    EXPECT_EQ(Screen().hfc.ListCount(), 1);
  });
}

TEST_F(UsageTest, LockDaysBelongToOnePeriodByQuantityAndToTheOtherByMoney) {
  LockTwoPeriods();
  stockroom.Execute("DELETE * FROM Hist_Purchases");
  stockroom.Fill("Hist_Purchases",
                 "inv_id | p_date | p_qty | price | pcenter\n"
                 "10 | 3/1/2025 | 1 | 10 | 0\n10 | 4/1/2025 | 2 | 100 | 0\n"
                 "10 | 3/2/2025 | 4 | 1000 | ");
  Analyse([&] {
    EXPECT_EQ(Grid().Text(1, 8), "2.00");
    EXPECT_EQ(Screen().hfc.Text(), "03/01/2025-04/01/2025 - Inventory Cost: $4017.00");
  });
}

TEST_F(UsageTest, ALockStoresWhatTheGridShowsOncePerDay) {
  Analyse([&] {
    EXPECT_EQ(Grid().MaxCols(), 6) << "no period, no totals";
    EXPECT_EQ(Grid().MaxRows(), 2);
    ExpectBox(kLockQuestion, Answer::No, "Lock Inventory");
    Click(Screen().save_lab);
    EXPECT_EQ(Grid().MaxCols(), 6);
    ExpectBox(kLockQuestion, Answer::Yes, "Lock Inventory");
    Click(Screen().save_lab);
    EXPECT_EQ(Grid().Text(0, 7), "Inventory as of 3/9/2026");
    EXPECT_EQ(GridText(Grid(), 6, 7), "4.00|4.00\n7.13|7.13\nInv. cost for per.:|16.53\n");
    ExpectBox(
        "You cannot 'lock' inventory for same profit center more than once for the same date.",
        Answer::Ok, "Lock Inventory");
    Click(Screen().save_lab);
  });
  EXPECT_EQ(Levels("3/9/2026"), "10|4|2.35\n9|7.13|1\n");
  EXPECT_EQ(Periods(), "3/9/2026|0\n");
}

TEST_F(UsageTest, APeriodLockedByAnotherDeskMeanwhileIsToldAndShown) {
  Analyse([&] {
    ExpectBox(kLockQuestion, Answer::Yes, "Lock Inventory");
    stockroom.desktop.Meanwhile([&] {
      stockroom.Fill("HI_Header", "F_Date | pcenter\n3/9/2026 | 0");
      stockroom.Fill("Historical Inventory",
                     "F_Date | Inv_ID | pcenter | Amount | Price\n3/9/2026 | 10 | 0 | 99 | 1");
    });
    stockroom.desktop.ExpectBox("3022 The change would create a duplicate value in a unique key.");
    Click(Screen().save_lab);
    EXPECT_EQ(GridText(Grid(), 7, 7), "99.00\n0.00\n232.65\n");
  });
  EXPECT_EQ(Levels("3/9/2026"), "10|99|1\n") << "all or nothing";
}

TEST_F(UsageTest, APeriodIsRemovedFromItsOwnColumnAndLeavesACopyBehind) {
  LockTwoPeriods();
  Analyse([&] {
    for (const int col : {6, 8, 9}) {
      stockroom.user().GoToCell(Grid(), 1, col);
      ExpectBox("You must be on a column labeled 'Inventory as of'.", Answer::Ok,
                "Historical Inventory");
      Click(Screen().remove);
    }
    const char* question = "Are you sure you want to remove the current column?";
    stockroom.user().GoToCell(Grid(), 1, 7);
    ExpectBox(question, Answer::No, "Historical Inventory");
    Click(Screen().remove);
    EXPECT_FALSE(IsCopied("removing a locked period"));
    ExpectBox(question, Answer::Yes, "Historical Inventory");
    ExpectBox("Historical Inventory has been removed for the date: 3/1/2025", Answer::Ok,
              "Historical Inventory");
    Click(Screen().remove);
    EXPECT_EQ(Grid().Text(0, 7), "Inventory as of 4/1/2025");
    EXPECT_EQ(Screen().hfc.ListCount(), 0);
  });
  EXPECT_EQ(Periods(), "4/1/2025|0\n3/1/2025|4\n") << "another profit center's stays";
  EXPECT_EQ(Levels("3/1/2025"), "");
  EXPECT_TRUE(IsCopied("removing a locked period"));
}

TEST_F(UsageTest, PeriodsOfOtherDataGoAfterOneBoxAndWithACopyAlone) {
  stockroom.Fill("HI_Header", "F_Date | pcenter\n3/1/2025 | 0\n4/1/2025 | 0\n3/1/2025 | 4");
  stockroom.Fill("Historical Inventory",
                 "F_Date | Inv_ID | pcenter | Amount | Price\n3/1/2025 | 11 | 0 | 1 | 1\n"
                 "4/1/2025 | 10 | 0 | 1 | 1\n3/1/2025 | 12 | 4 | 1 | 1");
  const std::string before = Periods();
  const auto box = [&] {
    ExpectBox(
        "Your data does not match the sample data.  Remove any previously 'frozen' periods and "
        "start fresh with your data.",
        Answer::Ok, "Period Usage");
  };
  // A file where the folder of the copies belongs.
  stockroom.App();
  const auto blocked = std::filesystem::path(stockroom.folder / "backups");
  std::filesystem::remove_all(blocked);
  WriteFile(blocked.string(), "x");
  Analyse([] {},
          [&] {
            box();
            ExpectBox("The database could not be copied into \"" + blocked.string() +
                          "\" before removing all locked periods.\n\n75 " + blocked.string() +
                          ": Not a directory\n\nDo you want to go on without a copy?",
                      Answer::No);
          });
  EXPECT_EQ(Periods(), before) << "No, and nothing goes";
  std::filesystem::remove(blocked);
  Analyse([&] { EXPECT_EQ(Screen().hfc.ListCount(), 0); }, box);
  EXPECT_EQ(Periods(), "3/1/2025|4\n");
  EXPECT_TRUE(IsCopied("removing all locked periods"));
}

TEST_F(UsageTest, WithoutPartsNothingIsRemoved) {
  LockTwoPeriods();
  stockroom.Execute("UPDATE I_Master SET active = 'NO'");
  const std::string before = Periods();
  Analyse(
      [&] {
        EXPECT_EQ(Grid().MaxRows(), 0);
        EXPECT_EQ(Grid().MaxCols(), 6);
      },
      [&] {
        ExpectBox(
            "No inventory items in the system.  Click on the '+' icon to add a new inventory item.",
            Answer::Ok, "Inventory");
      });
  EXPECT_EQ(Periods(), before);
}

TEST_F(UsageTest, OpeningMendsWhatDriftedApart) {
  LockTwoPeriods();
  stockroom.Fill("HI_Header", "F_Date | pcenter\n5/1/2025 | 0");
  stockroom.Fill("Historical Inventory",
                 "F_Date | Inv_ID | pcenter | Amount | Price\n"
                 "4/1/2025 | 10 | 4 | 1 | 7\n3/1/2025 | 9 | 0 | 1 | 0\n"
                 "3/1/2025 | gone | 0 | 1 | 0\n3/1/2025 | o'ring | 4 | 1 | 1\n"
                 "3/1/2025 | 9 | | 1 | 3");
  stockroom.Fill("I_Master",
                 "inv_id | pcenter | name | cost_per | active\no'ring | 0 | O | 1 | NO");
  stockroom.Fill("Hist_Purchases",
                 "inv_id | p_date | p_qty | price | pcenter\n"
                 "10 | 3/15/2025 | 1 | 1 | 4\n9 | 3/15/2025 | 1 | 0 | 0");
  Analyse([] {});
  EXPECT_EQ(Periods(), "3/1/2025|0\n4/1/2025|0\n3/1/2025|4\n") << "the empty one is gone";
  EXPECT_EQ(stockroom.Rows(std::string("SELECT Inv_ID, pcenter, Price FROM ") + kHistory +
                           " WHERE F_Date = #3/1/2025# ORDER BY Inv_ID, Price"),
            "10|0|2\n11|0|9\n12|4|1\n9|0|1\n9|Null|3\ngone|0|0\n");
  EXPECT_EQ(Levels("4/1/2025"), "10|4|2.5\n9|3|1\n");
  EXPECT_EQ(stockroom.Rows("SELECT inv_id, price, pcenter FROM Hist_Purchases ORDER BY inv_id"),
            "10|2.5|0\n9|1|0\n");
}

TEST_F(UsageTest, ALockHeldElsewhereCostsOneBoxAndTheGridLoads) {
  LockTwoPeriods();
  ASSERT_TRUE(stockroom.Start());
  jet::Database other = OtherDesk();
  jet::Recordset held = other.OpenRecordset("SELECT * FROM I_Master");
  held.Edit();
  Analyse(
      [&] {
        EXPECT_EQ(Grid().Text(1, 9), "12.00");
        EXPECT_TRUE(Grid().Visible && !Screen().WaitLabel.Visible);
        held.CancelUpdate();
      },
      [&] { stockroom.desktop.ExpectBox("3260 " + RunTimeError(3260).Description); });
}

TEST_F(UsageTest, WithoutTheWriteRightNothingIsLockedOrRemoved) {
  LockTwoPeriods();
  ASSERT_TRUE(stockroom.Start("/S:RRRR"));
  const std::string before = Periods();
  Analyse([&] {
    for (ActionLabel* label : {&Screen().save_lab, &Screen().remove}) {
      ExpectBox("Current security clearance is READ ONLY.\n\nChanges NOT Saved", Answer::Ok,
                "P.B.I.");
      Click(*label);
    }
  });
  EXPECT_EQ(Periods(), before);
}

TEST_F(UsageTest, TheChartShowsTheActivePartAndTheCostliestOnes) {
  LockTwoPeriods();
  Analyse([&] {
    stockroom.user().GoToCell(Grid(), 1, 1);
    stockroom.desktop.ExpectScreen("KVI_UsageChart", [&] {
      auto& charts = stockroom.App().Get<KVI_UsageChart>();
      EXPECT_EQ(charts.usage_chart.Spoken(),
                "Belt - used up to each locked period\n3/1/2025: Used 0.00, Level 10.00\n"
                "4/1/2025: Used 12.00, Level 4.00");
      EXPECT_EQ(charts.cost_chart.Spoken(),
                "Highest cost of usage in the last period\nRing: Cost -3.00\nBelt: Cost 25.00");
      Click(charts.exit_lab);
    });
    Click(Screen().chart_lab);
  });
}

}  // namespace
}  // namespace kvi::test
