#include "valuation/ItemValuation.h"

#include <gtest/gtest.h>

#include "store/Schema.h"
#include "support/ScriptedDesktop.h"
#include "support/TableText.h"
#include "support/TemporaryFolder.h"
#include "reports/KVI_ReportsAnalysis.h"
#include "support/TestStockroom.h"
#include "utilities/KVI_Utilities.h"

namespace kvi::test {
namespace {

using enum ValuationMethod;

class ItemValuationTest : public ::testing::Test {
 protected:
  // A part of the first profit center, and its receipts as "p_qty | Price", newest first. They are
  // entered oldest first.
  void AddPart(const std::string& number, const std::string& qty, const std::string& cost,
               const std::vector<std::string>& receipts) {
    FillTable(database, "I_Master",
              "inv_id | pcenter | qty_on_hand | cost_per | valuation\n" + number + " | 0 | " + qty +
                  " | " + cost + " | -1");
    std::string rows = "inv_id | p_date | p_qty | Price";
    for (std::size_t i = receipts.size(); i-- > 0;)
      rows += "\n" + number + " | 2/" + std::to_string(20 - i) + "/2026 | " + receipts[i];
    FillTable(database, "Hist_Purchases", rows);
  }
  double Stored(const std::string& number) {
    return database.OpenRecordset("SELECT * FROM I_Master WHERE inv_id = '" + number + "'")
        .Number("valuation");
  }
  void UpdateAll(std::optional<ValuationMethod> method, int profitCenter = 0) {
    UpdateAllValuations(database, method, desktop, profitCenter);
    EXPECT_EQ(desktop.Pointer(), MousePointer::Default);
  }

  TemporaryFolder folder;
  jet::Database database = CreateInventoryDatabase(folder / "KV_Inventory.mdb");
  ScriptedDesktop desktop;
};

struct Case {
  const char* story;
  const char *qty, *cost;
  std::vector<std::string> receipts;
  double fifoOnScreen, fifoStored, average, lastPrice;
};

constexpr double kPrice = 0.123456789012346;

const Case kCases[] = {
    {"two layers double on the screen", "10", "5", {"6|2", "8|3"}, 44, 24, 36.0 / 14 * 10, 50},
    {"exact cover by two layers doubles too", "6", "5", {"4|2", "2|3"}, 24, 14, 14, 30},
    {"without a cost there is nothing to double", "6", "0", {"4|2", "2|3"}, 14, 14, 14, 0},
    {"one layer covers all", "3", "9", {"5|2", "7|4"}, 6, 6, 38.0 / 12 * 3, 27},
    {"history shorter than the level", "5", "4", {"3|2"}, 14, 14, 10, 20},
    {"the average holds receipts long consumed", "4", "3", {"10|1", "30|2"}, 4, 4, 7, 12},
    {"a negative level takes from the newest", "-2", "5", {"4|3", "6|1"}, -6, -6, -3.6, -10},
    {"no history", "3", "4", {}, 12, 12, 12, 12},
    {"a level of as good as nothing", "0.0000001", "4", {"3|2"}, 0, 0, 0, 0},
    {"Null counts as 0", "6", "5", {"|2", "4|", "9|3"}, 16, 6, 27.0 / 13 * 6, 30},
    {"15 digits of a price count", "1", "0", {"1|0.12345678901234567"}, kPrice, kPrice, kPrice, 0},
};

TEST_F(ItemValuationTest, TheTwinsFollowTheMethod) {
  for (std::size_t i = 0; i < std::size(kCases); ++i)
    AddPart(std::to_string(i), kCases[i].qty, kCases[i].cost, kCases[i].receipts);
  for (const auto method : {FIFO, Weighted, LastPrice}) {
    UpdateAll(method);
    for (std::size_t i = 0; i < std::size(kCases); ++i) {
      const Case& part = kCases[i];
      const std::string number = std::to_string(i);
      const double onScreen = ItemValuation(database, method, desktop, number,
                                            Value(part.qty).Number(), Value(part.cost).Number());
      const double stored = Stored(number);
      const double other = method == Weighted ? part.average : part.lastPrice;
      EXPECT_DOUBLE_EQ(onScreen, method == FIFO ? part.fifoOnScreen : other) << part.story;
      EXPECT_DOUBLE_EQ(stored, method == FIFO ? part.fifoStored : other) << part.story;
    }
  }
}

TEST_F(ItemValuationTest, WithoutAMethodAPartWithHistoryKeepsItsFigureAndShowsNone) {
  AddPart("old", "3", "4", {"3|2"});
  AddPart("new", "3", "4", {});
  AddPart("out", "0", "4", {"3|2"});
  UpdateAll(std::nullopt);
  EXPECT_EQ(Stored("old"), -1);
  EXPECT_EQ(Stored("new"), 12);
  EXPECT_EQ(Stored("out"), 0);
  EXPECT_EQ(ItemValuation(database, std::nullopt, desktop, "old", 3, 4), 0);
  EXPECT_EQ(ItemValuation(database, std::nullopt, desktop, "new", 3, 4), 12);
}

TEST_F(ItemValuationTest, TheHistoryIsThatOfAllProfitCentersAndThePassThatOfOne) {
  AddPart("1", "5", "4", {"2|3"});
  FillTable(database, "I_Master",
            "inv_id | pcenter | qty_on_hand | cost_per | valuation\n 2 | 9 | 5 | 4 | -1\n"
            "999999 | | 1 | 1 | -1");
  FillTable(database, "Hist_Purchases",
            "inv_id | p_date | p_qty | Price | PCenter\n 1 | 1/1/2026 | 9 | 1 | 9\n"
            "2 | 1/1/2026 | 9 | 2 | 0");
  UpdateAll(FIFO);
  EXPECT_EQ(Stored("1"), 9) << "2 at 3, 3 at 1";
  EXPECT_EQ(Stored("2"), -1);
  UpdateAll(FIFO, 9);
  EXPECT_EQ(Stored("2"), 10);
  EXPECT_EQ(Stored("999999"), -1) << "in no profit center";
  UpdateAll(FIFO, 4);
}

TEST_F(ItemValuationTest, QuantitiesThatAddUpTo0HaveNoAverage) {
  AddPart("1", "2", "4", {"1|3"});
  AddPart("2", "5", "4", {"3|2", "-3|2"});
  AddPart("3", "2", "4", {"1|3"});
  desktop.ExpectBox("11 Division by zero");
  EXPECT_EQ(ItemValuation(database, Weighted, desktop, "2", 5, 4), 0);

  desktop.ExpectBox("11 Division by zero");
  desktop.Meanwhile([&] {
    EXPECT_EQ(desktop.Pointer(), MousePointer::Default);
    jet::Database other = jet::Database::Open(folder / "KV_Inventory.mdb", false);
    EXPECT_EQ(other.Execute("UPDATE I_Master SET name = 'free' WHERE inv_id = '2'"), 1);
  });
  desktop.SetPointer(MousePointer::Hourglass);  // as a failed pass before may have left it
  UpdateAll(Weighted);
  EXPECT_EQ(Stored("1"), 6) << "done before";
  EXPECT_EQ(Stored("2"), -1);
  EXPECT_EQ(Stored("3"), -1) << "the remaining parts are not revalued";
}

TEST_F(ItemValuationTest, ALevelOfNothingAsksNoQuery) {
  EXPECT_EQ(ItemValuation(database, FIFO, desktop, "O'Ring", 0.0000001, 4), 0);
}

TEST_F(ItemValuationTest, ALockThatLastsEndsThePass) {
  AddPart("1", "2", "4", {"1|3"});
  jet::Database other = jet::Database::Open(folder / "KV_Inventory.mdb", false);
  jet::Recordset held = other.OpenRecordset("SELECT * FROM I_Master");
  held.Edit();
  desktop.ExpectBox("3260 The record cannot be changed; another user has it locked.");
  UpdateAll(FIFO);
  EXPECT_EQ(ItemValuation(database, FIFO, desktop, "1", 2, 4), 7) << "reading needs no lock";
  held.CancelUpdate();
  EXPECT_EQ(Stored("1"), -1);
  UpdateAll(FIFO);
  EXPECT_EQ(Stored("1"), 7);
}

TEST(Valuations, UtilitiesRenewThemAfterAQuestionByTheMethodOfTheMoment) {
  TestStockroom stockroom;
  stockroom.Fill("I_Master", "inv_id | pcenter | qty_on_hand | cost_per\n 1 | 0 | 4 | 5");
  stockroom.Fill("Hist_Purchases",
                 "inv_id | p_date | p_qty | Price\n 1 | 2/2/2026 | 10 | 1\n 1 | 2/1/2026 | 30 | 2");
  ASSERT_TRUE(stockroom.Start());
  const std::string question =
      "This option will update all valuations using the selected valuation method.  \n\n"
      "Are you sure you want to continue?";
  const auto valuation = [&] { return stockroom.Rows("SELECT valuation FROM I_Master"); };
  stockroom.InUtilities([&](auto& screen) {
    stockroom.desktop.ExpectBox(question, Answer::No, "KV Inventory");
    stockroom.user().Click(screen.cmdUpdateAllValuations);
    EXPECT_EQ(valuation(), "0\n");
    stockroom.user().Choose(screen.OptUseAvg);
    stockroom.desktop.ExpectBox(question, Answer::Yes, "KV Inventory");
    stockroom.desktop.ExpectBox("Valuations updated.");
    stockroom.user().Click(screen.cmdUpdateAllValuations);
    EXPECT_EQ(valuation(), "7\n");
    stockroom.user().Choose(screen.OptUseFIFO);
  });
  // Opening the reports renews them without a word.
  stockroom.desktop.ExpectScreen("KVI_ReportsAnalysis", [&] {
    EXPECT_EQ(valuation(), "4\n");
    stockroom.user().Click(stockroom.App().Get<KVI_ReportsAnalysis>().exit_lab);
  });
  stockroom.user().Click(stockroom.MainScreen().Label3);
}

}  // namespace
}  // namespace kvi::test
