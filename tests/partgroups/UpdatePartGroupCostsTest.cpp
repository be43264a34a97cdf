#include "partgroups/UpdatePartGroupCosts.h"

#include "base/ErrorOf.h"
#include "items/KVI_InventorySummary.h"
#include "support/Story.h"
#include "utilities/KVI_Utilities.h"

namespace kvi::test {
namespace {

// The tables are filled when the program runs: its start would repair some of the holes.
class PartGroupCostsTest : public StoryTest {
 protected:
  void SetUp() override { ASSERT_TRUE(stockroom.Start()); }

  void Items(const std::string& rows) {
    stockroom.Fill("I_Master",
                   "inv_id | pcenter | cost_per | hi_qty | hu_qty | how_used | Yield\n" + rows);
  }
  void Groups(const std::string& rows) { stockroom.Fill("R_Master", "rec_id | cost\n" + rows); }
  void Lines(const std::string& rows) {
    stockroom.Fill("Inv_Recipe", "rec_id | inv_id | qty | cost_per | how_used | desc\n" + rows);
  }
  // A group that costs 5 and should cost 3.
  void OneGroup() {
    Items("A | 0 | 6 | 2 | 1 | each |");
    Groups("G | 5");
    Lines("G | A | 1 | 9 | | ");
  }
  void ExpectYes() { ExpectBox(kCostQuestion, Answer::Yes); }
  void Run() {
    ExpectYes();
    ExpectBox("Part Groups updated.");
    stockroom.desktop.Meanwhile([this] { EXPECT_EQ(Pointer(), MousePointer::Default); });
    UpdatePartGroupCosts(stockroom.App());
    stockroom.desktop.AllCame();
  }
  int Failure() {
    ExpectYes();
    const int number = ErrorOf([this] { UpdatePartGroupCosts(stockroom.App()); });
    EXPECT_EQ(Pointer(), MousePointer::Hourglass) << "left as it was";
    return number;
  }
  MousePointer Pointer() { return stockroom.desktop.Pointer(); }
  std::string GroupCosts() { return stockroom.Rows("SELECT rec_id, cost FROM R_Master"); }
  std::string LineCosts() {
    return stockroom.Rows("SELECT inv_id, cost_per, how_used FROM Inv_Recipe");
  }
};

TEST_F(PartGroupCostsTest, YieldReachesOnlyWhatNestedLinesAreGiven) {
  Items("A | 4 | 12 | 4 | 3 | each | 50\n other | 0 | 1 | 1 | 1 | each |");
  Groups("G |\n H | 99\n empty | 5");
  Lines("G | A | 2 | | | \n H | G | 3 | 0 | Units | RECIPE IN RECIPE");
  Run();
  EXPECT_EQ(LineCosts(), "A|1|each\nG|4|Units\n");
  EXPECT_EQ(GroupCosts(), "G|2\nH|12\nempty|0\n");
  EXPECT_EQ(stockroom.App().ItemSet.RecordCount(), 2) << "all profit centers now";
}

TEST_F(PartGroupCostsTest, ACostClimbsOneLevelOfNestingARun) {
  Items("A | 0 | 1 | 1 | 1 | each |");
  Groups("G4 |\n G3 |\n G2 |\n G1 |\n loop |");
  Lines(
      "G1 | A | 1 | | | \n"
      "G2 | G1 | 1 | 0 | Units | RECIPE IN RECIPE\n"
      "G3 | G2 | 1 | 0 | Units | RECIPE IN RECIPE\n"
      "G4 | G3 | 1 | 0 | Units | RECIPE IN RECIPE\n"
      "loop | A | 1 | | | \n"
      "loop | loop | 1 | 0 | Units | RECIPE IN RECIPE");
  for (const char* costs : {"G4|0\nG3|0\nG2|1\nG1|1\nloop|2\n", "G4|0\nG3|1\nG2|1\nG1|1\nloop|3\n",
                            "G4|1\nG3|1\nG2|1\nG1|1\nloop|4\n"}) {
    Run();
    EXPECT_EQ(GroupCosts(), costs);
  }
}

TEST_F(PartGroupCostsTest, AnItemThatGivesNoCostTakesThatOfTheLineBefore) {
  Items(
      "X | 0 | 15 | 2 | 1 | each |\n"
      "free | 0 | | 0 | 1 | |\n"
      "flat | 0 | 9 | 1 | 0 | box |\n"
      "Bare | 0 | 9 | | 5 | pair |");
  Groups("G |");
  Lines(
      "G | 'X ' | 1 | | | \n"
      "G | G | 1 | 3 | Units | ' recipe in Recipe '\n"
      "G | FLAT | 1 | | old | flat\n"
      "G | bare | 1 | | old | \n"
      "G | gone | 1 | | old | \n"
      "G | flat | 1 | | old | \n"
      "G | X | 1 | | | \n"
      "G | free | 1 | | old | ");
  Run();
  EXPECT_EQ(LineCosts(),
            "X |7.5|each\n"
            "G|3|Units\n"  // untouched: nested by its trimmed text, but not found by the exact one
            "FLAT|7.5|box\n"
            "bare|7.5|pair\n"
            "gone|0|\n"
            "flat|0|box\n"
            "X|7.5|each\n"
            "free|0|\n");
}

TEST_F(PartGroupCostsTest, OnlyABareGroupNumberResolves) {
  Items(
      "A | 0 | 10 | 1 | 1 | each | 80\n low | 0 | 10 | 1 | 1 | each | 0\n"
      "lower | 0 | 10 | 1 | 1 | each | -5");
  Groups("7 |\n 8 |");
  Lines(
      "7 | A | 1 | | | \n"
      "7 | 'A ' | 1 | | | \n"  // costed by the trimmed number, but its yield is looked up untrimmed
      "7 | low | 1 | | | \n"
      "7 | lower | 1 | | | \n"
      "8 | 7 (part group #) | 1 | 5 | Units | RECIPE IN RECIPE\n"
      "8 | 7 | 1 | 5 | Units | recipe in recipe\n"
      "8 | 9 | 1 | 5 | Units | RECIPE IN RECIPE");
  Run();
  EXPECT_EQ(stockroom.Rows("SELECT inv_id, cost_per FROM Inv_Recipe WHERE rec_id = '8'"),
            "7 (part group #)|0\n7|42.5\n9|0\n");
  EXPECT_EQ(GroupCosts(), "7|40\n8|42.5\n");
}

TEST_F(PartGroupCostsTest, TheFirstQuotientKeeps15DigitsAndNothingRounds) {
  Items("A | 0 | 2 | 3 | 7 | each |");
  Groups("G |");
  Lines("G | A | 3 | | | ");
  Run();
  auto line = stockroom.App().CurrentDatabase.OpenRecordset("SELECT * FROM Inv_Recipe");
  EXPECT_EQ(line["cost_per"], Value(0.666666666666667 / 7));
  auto group = stockroom.App().CurrentDatabase.OpenRecordset("SELECT * FROM R_Master");
  EXPECT_EQ(group["cost"], Value(0.0952380952380953 * 3));
}

TEST_F(PartGroupCostsTest, WithoutAnyLineNothingIsWrittenAndNothingSaid) {
  Items("A | 4 | 1 | 1 | 1 | each |");
  Groups("G | 5");
  ExpectYes();
  UpdatePartGroupCosts(stockroom.App());
  EXPECT_EQ(GroupCosts(), "G|5\n");
  EXPECT_EQ(Pointer(), MousePointer::Default);
  EXPECT_EQ(stockroom.App().ItemSet.RecordCount(), 1);
}

TEST_F(PartGroupCostsTest, AFailureStopsInMidPassAndKeepsWhatWasWritten) {
  constexpr int kDivisionByZero = 11, kInvalidUseOfNull = 94, kSyntaxError = 3075;
  Items(
      "A | 0 | 6 | 2 | 1 | each |\n zero | 0 | 6 | 0 | 1 | each |\n flat | 0 | 6 | 1 | 0 | box |");
  const struct {
    const char *story, *lines;
    int number;
    const char *lineCosts, *groupCosts;
  } cases[] = {
      {"a division by zero", "G | A | 1 | 9 | | \n G | zero | 1 | 9 | bag | \n G | A | 1 | 9 | | ",
       kDivisionByZero, "A|3|each\nzero|9|bag\nA|9|Null\n", "G|5\nH|5\n"},
      {"a quote in a number, which breaks the search",
       "G | A | 1 | 9 | | \n G | O'Ring | 1 | 9 | | ", kSyntaxError, "A|3|each\nO'Ring|9|Null\n",
       "G|5\nH|5\n"},
      {"a first cost that is not set", "H | flat | 1 | 9 | | \n G | A | 1 | 9 | | ",
       kInvalidUseOfNull, "flat|Null|box\nA|3|each\n", "G|3\nH|5\n"},
      {"a line without a quantity", "G | A | 1 | 9 | | \n H | A | | 9 | | ", kInvalidUseOfNull,
       "A|3|each\nA|3|each\n", "G|3\nH|5\n"},
      {"a nested line without a cost",
       "G | A | 1 | 9 | | \n H | G | 1 | | Units | RECIPE IN RECIPE", kInvalidUseOfNull,
       "A|3|each\nG|Null|Units\n", "G|3\nH|5\n"},
  };
  for (const auto& step : cases) {
    SCOPED_TRACE(step.story);
    stockroom.Execute("DELETE * FROM Inv_Recipe");
    stockroom.Execute("DELETE * FROM R_Master");
    Groups("G | 5\n H | 5");
    Lines(step.lines);
    EXPECT_EQ(Failure(), step.number);
    EXPECT_EQ(LineCosts(), step.lineCosts);
    EXPECT_EQ(GroupCosts(), step.groupCosts);
  }
}

TEST_F(PartGroupCostsTest, ALockedRowIsNotTriedAgain) {
  OneGroup();
  jet::Database other = OtherDesk();
  jet::Recordset held = other.OpenRecordset("SELECT * FROM Inv_Recipe");
  held.Edit();
  EXPECT_EQ(Failure(), 3260);
  EXPECT_EQ(LineCosts(), "A|9|Null\n");
}

TEST_F(PartGroupCostsTest, UtilitiesShowAFailureAndTheNextRunFreesThePointer) {
  Items("A | 0 | 6 | 0 | 1 | each |");
  Groups("G | 5");
  Lines("G | A | 1 | 9 | | ");
  stockroom.InUtilities([this](auto& screen) {
    ExpectYes();
    ExpectBox("11 Division by zero");
    stockroom.user().Click(screen.cmdUpdateRecipeCosts);
    EXPECT_EQ(Pointer(), MousePointer::Hourglass);
    stockroom.Execute("UPDATE I_Master SET hi_qty = 1");
    ExpectYes();
    ExpectBox("Part Groups updated.");
    stockroom.user().Click(screen.cmdUpdateRecipeCosts);
    EXPECT_EQ(Pointer(), MousePointer::Default);
  });
  EXPECT_EQ(GroupCosts(), "G|6\n");
}

TEST_F(PartGroupCostsTest, NoLeavesEveryRowAndThePointer) {
  OneGroup();
  const int items = stockroom.App().ItemSet.RecordCount();
  ExpectBox(kCostQuestion, Answer::No);
  ExpectBox("Part groups NOT updated.");
  stockroom.desktop.Meanwhile([this] { EXPECT_EQ(Pointer(), MousePointer::Default); });
  UpdatePartGroupCosts(stockroom.App());
  stockroom.App().AccessString = "WWRW";
  ExpectBox("Current security clearance is READ ONLY for part groups.\n\nChanges NOT Saved");
  UpdatePartGroupCosts(stockroom.App());
  EXPECT_EQ(GroupCosts(), "G|5\n");
  EXPECT_EQ(LineCosts(), "A|9|Null\n");
  EXPECT_EQ(stockroom.App().ItemSet.RecordCount(), items);
}

TEST_F(PartGroupCostsTest, TheInventorySummaryAsksOnLeavingAfterAChange) {
  OneGroup();
  const std::string question =
      "You have made changes that could affect part group costs.\n\n"
      "Would you like to update part group costs at this time?";
  for (const bool wanted : {false, true}) {
    Visit<KVI_InventorySummary>(&Main::Label1, [&] {
      stockroom.App().PartGroupCostsStale = true;
      ExpectBox(question, wanted ? Answer::Yes : Answer::No, "Update Part Group Costs");
      if (wanted) {
        ExpectYes();
        ExpectBox("Part Groups updated.");
      }
    });
    EXPECT_FALSE(stockroom.App().PartGroupCostsStale);
    EXPECT_EQ(GroupCosts(), wanted ? "G|3\n" : "G|5\n");
  }
}

}  // namespace
}  // namespace kvi::test
