#include "frame/GENERAL.h"

#include <gtest/gtest.h>

#include "frame/INI_SUBS.h"
#include "frame/StrgSubs.h"
#include "support/BareScreen.h"
#include "support/TestStockroom.h"

namespace kvi::test {
namespace {

class GeneralTest : public ::testing::Test {
 protected:
  jet::Database& Open() {
    EXPECT_TRUE(stockroom.Start());
    return stockroom.App().CurrentDatabase;
  }
  TestStockroom stockroom;
};

TEST_F(GeneralTest, TextsLoseWhatWouldBreakAKey) {
  EXPECT_EQ(StripQuotes("O'Ring 3/4\" & more"), "ORing 3/4 & more");
  EXPECT_EQ(StripQuotes(""), "");
  EXPECT_EQ(ClipToNul(std::string("  Dock 4 \0 rest", 15)), "Dock 4");
}

TEST_F(GeneralTest, AFileCountsOnlyWithContent) {
  WriteFile(stockroom.folder / "empty", "");
  WriteFile(stockroom.folder / "full", "x");
  EXPECT_FALSE(FileHasContent(""));
  EXPECT_FALSE(FileHasContent("  "));
  EXPECT_FALSE(FileHasContent(stockroom.folder / "missing"));
  EXPECT_FALSE(FileHasContent(stockroom.folder / "empty"));
  EXPECT_FALSE(FileHasContent(stockroom.folder.Path().string()));
  EXPECT_TRUE(FileHasContent(stockroom.folder / "full"));
}

TEST_F(GeneralTest, TheNextNumberFollowsTheHighestByValue) {
  jet::Database& database = Open();
  EXPECT_EQ(NextInvId(database), "1");
  stockroom.Fill("I_Master", "inv_id\n 9\n 100\n 20\n BRG-1");
  EXPECT_EQ(NextInvId(database), "101");
  stockroom.Fill("I_Master", "inv_id\n 999999");
  EXPECT_EQ(NextInvId(database), "1000000");
}

TEST_F(GeneralTest, YieldAndCostOfAPart) {
  stockroom.Fill("I_Master", "inv_id | Yield | cost_per\n 1 | 80 | 2.5\n 2 | -5 | 1\n 3 | | 3");
  jet::Database& database = Open();
  EXPECT_EQ(GetItemYield(database, "1"), 80);
  for (const char* whole : {"2", "3", "gone"})
    EXPECT_EQ(GetItemYield(database, whole), 100) << whole;
  EXPECT_EQ(GetItemCostPer(database, "1"), 2.5);
  EXPECT_EQ(GetItemCostPer(database, "gone"), 0);
  EXPECT_EQ(GetItemCostPer(database, "O'Ring"), 0) << "a broken key is an error, and that is 0";
}

TEST_F(GeneralTest, PartGroupsOfAPartAreListedOnceByName) {
  stockroom.Fill("R_Master", "rec_id | name\n 1 | Pump kit\n 2 | Door kit\n 3 | Other\n 4 |");
  stockroom.Fill("Inv_Recipe", "rec_id | inv_id\n 1 | 7\n 1 | 7\n 2 | 7\n 3 | 8\n 4 | 7");
  jet::Database& database = Open();
  BareScreen screen;
  ListBox list{screen, "RecipeList"};
  ListPartGroupsOfItem(database, list, " ");
  EXPECT_TRUE(list.Items().empty());
  ListPartGroupsOfItem(database, list, "7");
  EXPECT_EQ(list.Items(), (std::vector<std::string>{"", "Door kit", "Pump kit"}));
}

}  // namespace
}  // namespace kvi::test
