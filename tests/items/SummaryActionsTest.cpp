#include "base/RunTimeError.h"
#include "grids/SprdSubs.h"
#include "items/DetailStory.h"
#include "store/Schema.h"

namespace kvi::test {
namespace {

class SummaryActionsTest : public DetailStoryTest {
 protected:
  void Duplicate(int row) {
    stockroom.user().GoToCell(Summary().Spread1, row, 1);
    ExpectBox("Are you sure you want to duplicate this item?", Answer::Yes,
              "Maintenance - Duplicate");
  }
  void Remove(int row) {
    stockroom.user().GoToCell(Summary().Spread1, row, 1);
    ExpectBox("Are you sure you want to remove this item?", Answer::Yes, "- Remove");
  }
};
INSTANTIATE_TEST_SUITE_P(Views, SummaryActionsTest, kBothViews, ViewName);

// New makes the tabs ready alone: the one page comes up with its own last part.
TEST_P(SummaryActionsTest, NewBlanksTheTabsByAListOfItsOwn) {
  stockroom.Execute("UPDATE I_Master SET active = 'NO', CorpInventoryItem = False");
  InSummary([&] {
    OpenRow(1, [](ItemDetailScreen&) {});
    ExpectDetail([&](ItemDetailScreen& part) {
      if (OnePage()) {
        EXPECT_EQ(part.Caption() + "|" + part.i_num.Text(), "Detail - Belt|10");
        return;
      }
      EXPECT_EQ(part.Caption(), "Detail - Add New Item");
      EXPECT_EQ(Texts(part.i_num, part.iname, part.how_purchased, part.Price1, part.hu_cost_per,
                      part.hi_qty, part.hu_qty, part.v_id1, part.hi_cost_per),
                "|||||1|1|N7|8.3333");
      EXPECT_FALSE(part.i_num.Locked || part.btnCID.Enabled || part.NewItem());
      EXPECT_EQ(part.where1.ListCount(), 2);
      Enter(part.i_num, "15");
      Enter(part.iname, "Cap");
      Click(part.save);
      Click(part.next_lab);
      Enter(part.hp_cost_per, "9");
      Click(part.save);
    });
    Click(Summary().new_lab);
    EXPECT_EQ(GridText(Summary().Spread1, 4, 4), OnePage() ? "10\n20\n30\n" : "10\n15\n20\n30\n");
  });
  EXPECT_EQ(Items("inv_id", "active = 'YES' and CorpInventoryItem"), OnePage() ? "" : "15\n");
  EXPECT_EQ(stale, !OnePage()) << "by the cost of the part that was stepped to";
}

TEST_P(SummaryActionsTest, OpeningTellsTheNumberToTheLayoutOfThePreferences) {
  InSummary([&] {
    stockroom.user().Choose(Summary().CatCombo, Summary().CatCombo.IndexOf("Seals"));
    stockroom.user().DoubleClick(Summary().Spread1, 0, 1);
    OpenRow(2, [&](ItemDetailScreen& part) {
      EXPECT_EQ(part.Caption(), "Detail - Seal");
      Enter(part.hi_qty, "4");
      Click(part.save);
    });
    EXPECT_EQ(Summary().Spread1.ActiveRow(), 2);
    EXPECT_EQ(Summary().Spread1.Text(2, 10), "4.00") << "the grid is rebuilt on coming back";
  });
  EXPECT_EQ(stockroom.App().CurrentCategory, "Seals");
  EXPECT_TRUE(stale);
}

TEST_P(SummaryActionsTest, ADuplicateIsMarkedAndLacksScanNumberPricesAndVendorChoice) {
  ASSERT_TRUE(stockroom.Start("/S:RRRR"));
  InSummary([&] {
    Duplicate(1);
    Click(Summary().duplicate);
    EXPECT_EQ(GridText(Summary().Spread1, 4, 4), "10\n10 DUP\n20\n30\n");
    EXPECT_EQ(Summary().Spread1.ActiveRow(), 1);
    Duplicate(1);
    ExpectBox("Duplicate already exists. New record NOT created.", Answer::Ok, "Duplicate");
    Click(Summary().duplicate);
    Duplicate(2);
    ExpectBox("You cannot duplicate a 'duplicate'.", Answer::Ok, "Duplicate");
    Click(Summary().duplicate);
    OtherDesk().Execute("DELETE * FROM I_Master WHERE inv_id = '30'");
    Duplicate(4);
    ExpectBox("3021 " + DescriptionOf(3021));
    Click(Summary().duplicate);
  });
  EXPECT_EQ(Items("name, category, hi_qty, qty_on_hand, valuation, where1, notes, active, "
                  "BarCodeScan, CorpInventoryItem, Price1, VendorOptNo",
                  "inv_id = '10 DUP'"),
            "Belt DUP|Belts|12|14.5|1450|Nord|dry place|YES|Null|False|Null|Null\n");
}

TEST_P(SummaryActionsTest, RemovingTakesThePartAndItsGroupLinesAlone) {
  stockroom.Fill("Inv_Recipe", "rec_id | inv_id\n A | 30\n A | 10");
  stockroom.Fill("Hist_Purchases", "inv_id | p_qty\n 30 | 1");
  InSummary([&] {
    Remove(3);
    Click(Summary().remove);
    EXPECT_EQ(GridText(Summary().Spread1, 4, 4), "10\n20\n");
    EXPECT_EQ(Summary().StatusBar1.PanelText(1), "2 of 2 records");
    EXPECT_EQ(stockroom.Rows("SELECT inv_id FROM Inv_Recipe"), "10\n");
    EXPECT_EQ(stockroom.Rows("SELECT inv_id FROM Hist_Purchases"), "30\n");
    EXPECT_EQ(stockroom.App().ItemSet.RecordCount(), 2);
    for (int left = 2; left > 0; --left) {
      Remove(1);
      Click(Summary().remove);
    }
    ExpectBox("Cannot remove. No records were selected.");
    Click(Summary().remove);
  });
  EXPECT_TRUE(stale);
  EXPECT_EQ(Items("inv_id, name, active"), "999999|Base Record|NO\n");
}

TEST_P(SummaryActionsTest, ARemovalThatFailsIsToldAndRemovesNothing) {
  std::vector<jet::TableDef> tables = Schema();
  std::erase_if(tables, [](const jet::TableDef& table) { return table.Name == "Inv_Recipe"; });
  stockroom.App().CurrentDatabase = jet::Database::Create(stockroom.folder / "old.mdb", tables);
  stockroom.Fill("I_Master", "inv_id | pcenter | name\n 1 | 0 | Nut");
  InSummary([&] {
    Remove(1);
    ExpectBox("3078 " + DescriptionOf(3078) + " (Inv_Recipe)");
    Click(Summary().remove);
  });
  EXPECT_EQ(Items("inv_id"), "1\n");
}

TEST_P(SummaryActionsTest, RemovingAndAddingNeedTheWriteRight) {
  ASSERT_TRUE(stockroom.Start("/S:RRRR"));
  InSummary([&] {
    for (ActionLabel* action : {&Summary().remove, &Summary().new_lab}) {
      ExpectBox("Current security clearance is READ ONLY.", Answer::Ok, "KV Inventory");
      Click(*action);
    }
  });
}

TEST_P(SummaryActionsTest, ALockedPartIsRemovedOnceTheLockIsGoneOrNotAtAll) {
  jet::Database other = OtherDesk();
  jet::Recordset theirs = other.OpenRecordset("SELECT * FROM I_Master WHERE inv_id = '20'");
  InSummary([&] {
    theirs.Edit();
    Remove(2);
    ExpectLock(Answer::No);
    Click(Summary().remove);
    EXPECT_EQ(Summary().Spread1.MaxRows(), 3);
    Remove(2);
    ExpectLock(Answer::Yes);
    stockroom.desktop.Meanwhile([&] { theirs.CancelUpdate(); });
    Click(Summary().remove);
    EXPECT_EQ(GridText(Summary().Spread1, 4, 4), "10\n30\n");
    EXPECT_EQ(Summary().Spread1.ActiveRow(), 2);
  });
}

}  // namespace
}  // namespace kvi::test
