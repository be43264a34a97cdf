#include "frame/BulkWalk.h"

#include <thread>

#include "base/ErrorOf.h"
#include "base/RunTimeError.h"
#include "partgroups/UpdatePartGroupCosts.h"
#include "store/RepairItemDefaults.h"
#include "support/Story.h"
#include "valuation/ItemValuation.h"

namespace kvi::test {
namespace {

class BulkWalkTest : public StoryTest {
 protected:
  BulkWalkTest() {
    stockroom.Fill(
        "I_Master",
        "inv_id | name | qty_on_hand\n 1 | a | 10\n 2 | b | 10\n 3 | c | 10\n 4 | d | 10");
  }
  std::string Parts() {
    return stockroom.Rows("SELECT inv_id, name, qty_on_hand FROM I_Master ORDER BY inv_id");
  }

  jet::Database desk = OtherDesk();
};

TEST_F(BulkWalkTest, DecidesOnTheRowUnderTheLockAndPassesOverWhatIsGone) {
  jet::Recordset items = desk.OpenRecordset("SELECT * FROM I_Master ORDER BY inv_id");
  // The row is on the screen, so to say, when another desk changes it, and the next one goes.
  EXPECT_EQ(items.Number("qty_on_hand"), 10);
  stockroom.Execute("UPDATE I_Master SET qty_on_hand = 50, name = 'theirs' WHERE inv_id = '1'");
  stockroom.Execute("DELETE * FROM I_Master WHERE inv_id = '2'");
  const auto isFull = [](const jet::Recordset& row) { return row.Number("qty_on_hand") >= 10; };
  WalkAndChange(
      desk, items,
      [](jet::Recordset& row) {
        row.Set("qty_on_hand", row.Number("qty_on_hand") + 1);
        return row.Text("inv_id") == "3" ? RowEnd::Leave : RowEnd::Write;
      },
      isFull);
  EXPECT_EQ(Parts(), "1|theirs|51\n3|c|10\n4|d|11\n");
}

TEST_F(BulkWalkTest, AFailureKeepsTheRowsBeforeItAndHoldsNothing) {
  jet::Recordset items = desk.OpenRecordset("SELECT * FROM I_Master ORDER BY inv_id");
  const auto change = [](jet::Recordset& row) {
    row.Set("name", "new");
    if (row.Text("inv_id") == "3") throw RunTimeError(11);
    return RowEnd::Write;
  };
  EXPECT_EQ(ErrorOf([&] { WalkAndChange(desk, items, change); }), 11);
  EXPECT_EQ(Parts(), "1|new|10\n2|new|10\n3|c|10\n4|d|10\n");
  stockroom.Execute("UPDATE I_Master SET name = 'free'");
}

TEST_F(BulkWalkTest, RowsThatAreLeftAreNoChangeToOthers) {
  jet::Recordset theirs = desk.OpenRecordset("SELECT * FROM I_Master WHERE inv_id = '1'");
  EXPECT_EQ(theirs.Text("name"), "a");
  jet::Database other = OtherDesk();
  jet::Recordset items = other.OpenRecordset("SELECT * FROM I_Master");
  WalkAndChange(other, items, [](jet::Recordset&) { return RowEnd::Leave; });
  EXPECT_EQ(ErrorOf([&] { theirs.Edit(); }), 0);
}

// A desk of its own, and what its boxes would say.
struct Desk {
  explicit Desk(const TestStockroom& stockroom)
      : app({desktop, clock, chance, stockroom.folder.Path().string(), ""}) {
    app.AccessString = "WWWW";
    app.CurrentDatabase = jet::Database::Open(stockroom.DatabaseFile(), false);
  }
  void RunAllWalks() {
    RepairItemDefaults(app.CurrentDatabase, desktop);
    desktop.ExpectBox(kCostQuestion, Answer::Yes);
    desktop.ExpectBox("Part Groups updated.");
    UpdatePartGroupCosts(app);
    UpdateAllValuations(app.CurrentDatabase, ValuationMethod::FIFO, desktop, 0);
  }

  ScriptedDesktop desktop;
  FixedClock clock;
  FixedChance chance;
  Application app;
};

TEST_F(BulkWalkTest, TwoDesksRunEachWalkTogetherAndEachRowHasItsValue) {
  constexpr int kParts = 400;
  std::string parts = "inv_id | pcenter | qty_on_hand | cost_per | hi_qty";
  std::string lines = "rec_id | inv_id | qty | cost_per | how_used | desc";
  for (int part = 0; part < kParts; ++part) {
    parts += "\n P" + std::to_string(part) + " | 0 | 2 | 3 | 1";
    lines += "\n G | P" + std::to_string(part) + " | 1 | 9 | |";
  }
  stockroom.Execute("DELETE * FROM I_Master");
  stockroom.Fill("I_Master", parts);
  stockroom.Fill("Inv_Recipe", lines);
  stockroom.Fill("R_Master", "rec_id | cost\n G | 5");
  Desk one(stockroom), two(stockroom);
  std::thread meanwhile([&] { two.RunAllWalks(); });
  one.RunAllWalks();
  meanwhile.join();
  EXPECT_EQ(stockroom.Rows("SELECT hu_qty, how_used, valuation, count(*) FROM I_Master "
                           "GROUP BY hu_qty, how_used, valuation"),
            "1|each|6|400\n");
  EXPECT_EQ(stockroom.Rows("SELECT cost_per, how_used, count(*) FROM Inv_Recipe "
                           "GROUP BY cost_per, how_used"),
            "3|each|400\n");
  EXPECT_EQ(stockroom.Rows("SELECT cost FROM R_Master"), "1200\n");
}

}  // namespace
}  // namespace kvi::test
