#include "base/RunTimeError.h"
#include "items/DetailStory.h"

namespace kvi::test {
namespace {

constexpr const char* kAllSaved =
    "pcenter, category, location, inv_id, name, desc, how_inv, how_used, how_purchased, hu_qty, "
    "hi_qty, cost_per, qty_on_hand, valuation, re_order, BarCodeScan, where1, where2, where3, "
    "w1_id, w2_id, w3_id, notes, optimal, active, CorpInventoryItem, picpath, Price1, Price2, "
    "Price3, VendorOptNo";

class ItemSaveTest : public DetailStoryTest {
 protected:
  std::string Count() { return stockroom.Rows("SELECT count(*) AS n FROM I_Master"); }
};
INSTANTIATE_TEST_SUITE_P(Views, ItemSaveTest, kBothViews, ViewName);

TEST_P(ItemSaveTest, WritesEveryFieldInTheFormInWhichItIsKept) {
  WithPart(1, [&](ItemDetailScreen& part) {
    auto& user = stockroom.user();
    user.Choose(part.n_active_i);
    user.Choose(part.rbNCII);
    Enter(part.iname, "V'Belt & Co");
    Enter(part.desc, " as it stands ");
    Enter(part.category, " Loose ");
    Enter(part.BarCodeScanId, "");
    Enter(part.where3, " Omega ");
    user.Choose(part.VendorOpt3);
    Enter(part.v_id3, "O1");
    Enter(part.Price1, "2.345 each");
    Enter(part.Price2, "none");
    Enter(part.re_order, "1.5 cases");
    // What cannot be saved is set right by the save.
    Enter(part.hp_cost_per, "12.5");
    Enter(part.how_used, "  ");
    Enter(part.hi_qty, "0");
    Click(part.save);
    EXPECT_EQ(Texts(part.how_used, part.hi_qty, part.hi_cost_per), "each|1|0.00");
    EXPECT_FALSE(part.ItemDirty());
  });
  EXPECT_EQ(
      Items(kAllSaved, "inv_id = '10'"),
      "0|Loose|Bin 2|10|VBelt  Co| as it stands |box|each|case|10|1|12.5|14.5|181.25|1.5| |Nord|"
      "Alpha|Omega|N7|A7|O1|dry place|20|NO|False| |2.35|0|0|0\n");
  WithPart(1, [&](ItemDetailScreen& part) {
    EXPECT_FALSE(part.VendorOpt3.Value) << "the third vendor is never stored as chosen";
    EXPECT_EQ(part.BarCodeScanId.Text(), "");
  });
}

TEST_P(ItemSaveTest, WithoutTheWriteRightTheStoredValuesComeBack) {
  ASSERT_TRUE(stockroom.Start("/S:RRRR"));
  WithPart(1, [&](ItemDetailScreen& part) {
    Enter(part.desc, "mine");
    ExpectBox("Current security clearance is READ ONLY.\n\nChanges NOT Saved", Answer::Ok,
              "KV Inventory");
    Click(part.save);
    EXPECT_EQ(part.desc.Text(), "wide");
    EXPECT_FALSE(part.ItemDirty());
    ExpectBox("Current security clearance is READ ONLY.", Answer::Ok, "KV Inventory");
    Click(part.dai);
    EXPECT_EQ(part.i_num.Text(), "10");
    ExpectBox("Current security clearance is READ ONLY.\n\nChanges NOT Saved", Answer::Ok,
              "KV Inventory");
    Click(part.btnCID);
  });
  EXPECT_EQ(Items("desc", "inv_id = '10'"), "wide\n");
}

TEST_P(ItemSaveTest, AddBlanksTheScreenAndTheNextFreeNumberIsGivenAtTheSave) {
  WithPart(1, [&](ItemDetailScreen& part) {
    Enter(part.desc, "changed");
    ExpectBox("Changes have been made.  Save before creating new order?", Answer::Cancel, "Detail");
    Click(part.dai);
    EXPECT_EQ(part.desc.Text(), "changed");
    ExpectBox("Changes have been made.  Save before creating new order?", Answer::Ok, "Detail");
    Click(part.dai);
    EXPECT_EQ(Items("desc", "inv_id = '10'"), "changed\n");
    EXPECT_EQ(part.Caption(), "Detail - Add New Item");
    EXPECT_EQ(Texts(part.i_num, part.iname, part.where1, part.v_id1, part.Price1, part.hi_cost_per,
                    part.hi_qty, part.hu_qty),
              "||||||12|1")
        << "hi_qty keeps the value of the part before";
    EXPECT_FALSE(part.i_num.Locked || part.btnCID.Enabled || part.ItemDirty());
    Click(part.print_lab);
    EXPECT_TRUE(stockroom.desktop.documents.empty()) << "a new part prints nothing";
    Enter(part.hp_cost_per, "3");
    ExpectBox(
        "You must enter an number before saving.  KVI has created one for you for now.  Please "
        "verify and save again.",
        Answer::Ok, "Save changes to inventory");
    Click(part.save);
    EXPECT_EQ(part.i_num.Text() + "|" + part.Caption(), "31|Maintenance");
    EXPECT_TRUE(part.i_num.Locked);
    EXPECT_FALSE(part.NewItem());
  });
  EXPECT_EQ(Items("how_inv, cost_per", "inv_id = '31'"), "each|3\n");
}

TEST_P(ItemSaveTest, ANumberThatStandsIsRefusedInItsFieldAndMayBeOverwrittenBySaving) {
  WithPart(1, [&](ItemDetailScreen& part) {
    Click(part.dai);
    ExpectBox("Inv ID Number 20 already exists. Please enter a new ID number.");
    Enter(part.i_num, " 20 ");
    EXPECT_EQ(part.i_num.Text(), "");
    // Free when it is typed, and given away by another desk before the save.
    for (const std::string number : {"50", "60"}) {
      Enter(part.i_num, number);
      Enter(part.iname, "Over");
      OtherDesk().Execute("INSERT INTO I_Master (inv_id, name, pcenter) VALUES ('" + number +
                          "', 'Theirs', 0)");
      const bool overwrites = number == "60";
      ExpectBox("ID " + number + " already exists. Overwrite exisiting record?",
                overwrites ? Answer::Yes : Answer::No);
      Click(part.save);
      EXPECT_EQ(part.i_num.Text(), overwrites ? "60" : "");
    }
  });
  EXPECT_EQ(Count(), "5\n");
  EXPECT_EQ(Items("inv_id, name, how_purchased", "inv_id > '4'"), "50|Theirs|Null\n60|Over|each\n");
}

TEST_P(ItemSaveTest, APartThatIsOpenedAfterAnAdditionWasLeftIsNoNewOne) {
  InSummary([&] {
    OpenRow(1, [&](ItemDetailScreen& part) {
      Click(part.dai);
      Click(part.exit_lab);
    });
    OpenRow(2, [&](ItemDetailScreen& part) {
      Enter(part.desc, "round");
      Click(part.save);
    });
  });
  EXPECT_EQ(Items("inv_id, desc"), "10|wide\n20|round\n30|Null\n");
}

TEST_P(ItemSaveTest, ASharedNameIsWarnedOfAndSavedAllTheSame) {
  WithPart(2, [&](ItemDetailScreen& part) {
    Enter(part.iname, "bELT");
    ExpectBox(
        "WARNING: This part/inventory name is already in use.  You should use a unique name. As a "
        "suggestion you could add your part # to the name.  If you choose to use a duplicate name, "
        "please make sure to select parts by part # inside the work order detail screen.  Changes "
        "have been saved, please update name if you want to be unique.");
    Click(part.save);
  });
  EXPECT_EQ(Items("name", "inv_id = '20'"), "bELT\n");
}

TEST_P(ItemSaveTest, AnotherDesksLockAsksUntilItIsGoneOrTheUserGivesUp) {
  jet::Database other = OtherDesk();
  jet::Recordset theirs = other.OpenRecordset("SELECT * FROM I_Master WHERE inv_id = '10'");
  WithPart(1, [&](ItemDetailScreen& part) {
    Enter(part.desc, "mine");
    theirs.Edit();
    ExpectLock(Answer::No);
    Click(part.save);
    EXPECT_TRUE(part.ItemDirty());
    EXPECT_EQ(part.desc.Text(), "mine");
    ExpectLock(Answer::Yes);
    stockroom.desktop.Meanwhile([&] {
      theirs.Set("desc", "theirs");
      theirs.Set("location", "theirs");
      theirs.Update();
    });
    Click(part.save);
    EXPECT_FALSE(part.ItemDirty());
    EXPECT_EQ(stockroom.desktop.Pointer(), MousePointer::Default);
  });
  EXPECT_EQ(Items("desc, location", "inv_id = '10'"), "mine|Bin 2\n") << "the last writer wins";
}

TEST_P(ItemSaveTest, ANumberTakenByAnotherDeskInTheMeantimeIsADuplicate) {
  jet::Database other = OtherDesk();
  jet::Recordset theirs = other.OpenRecordset("SELECT * FROM I_Master WHERE inv_id = '10'");
  WithPart(1, [&](ItemDetailScreen& part) {
    Click(part.dai);
    Enter(part.i_num, "40");
    Enter(part.iname, "Shim");
    theirs.Edit();
    ExpectLock(Answer::Yes);
    stockroom.desktop.Meanwhile([&] {
      theirs.CancelUpdate();
      other.Execute("INSERT INTO I_Master (inv_id, name) VALUES ('40', 'Theirs')");
    });
    ExpectBox("Duplicate # found.  Please enter a different #.\nChanges NOT saved.", Answer::Ok,
              "Save Changes");
    part.SaveItem();
    EXPECT_EQ(part.Caption(), "Detail - Add New Item");
    EXPECT_TRUE(part.ItemDirty() && part.NewItem());
  });
  EXPECT_EQ(Items("name", "inv_id = '40'"), "Theirs\n");
}

TEST_P(ItemSaveTest, ATextTooLongForItsFieldIsSaidAndNothingIsSaved) {
  ASSERT_TRUE(stockroom.Start());
  const std::string before = Items(kAllSaved);
  WithPart(1, [&](ItemDetailScreen& part) {
    const auto fails = [&](auto& field, const std::string& name) {
      const std::string kept = field.Text();
      stockroom.user().Type(field, std::string(300, 'x'));
      ExpectBox("An error has occurred saving data.3163 " + DescriptionOf(3163) + " (" + name + ")",
                Answer::Ok, "KV Inventory Save Changes");
      Click(part.save);
      EXPECT_TRUE(part.ItemDirty()) << name;
      stockroom.user().Type(field, kept);
    };
    fails(part.iname, "name");
    fails(part.BarCodeScanId, "BarCodeScan");
    fails(part.where3, "where3");
    EXPECT_EQ(Items(kAllSaved), before);
    jet::Database other = OtherDesk();
    EXPECT_EQ(other.Execute("UPDATE I_Master SET optimal = 21 WHERE inv_id = '10'"), 1)
        << "nothing stays locked";
    stockroom.user().Type(part.notes, std::string(300, 'n'));
    for (TextBox* number : {&part.hu_qty, &part.hp_cost_per, &part.re_order, &part.Price1})
      stockroom.user().Type(*number, std::string(300, '7'));
    stockroom.user().Click(part.save);
  });
  EXPECT_EQ(Items("Len(notes) AS n", "inv_id = '10'"), "300\n");
}

TEST_P(ItemSaveTest, LeavingAChangedPartAsks) {
  InSummary([&] {
    for (const Answer answer : {Answer::No, Answer::Yes}) {
      OpenRow(1, [&](ItemDetailScreen& part) {
        Enter(part.desc, "thin");
        ExpectBox("Changes have been made.  Save before exiting?", answer);
        Click(part.exit_lab);
      });
      EXPECT_EQ(Items("desc", "inv_id = '10'"), answer == Answer::Yes ? "thin\n" : "wide\n");
    }
    OpenRow(1, [&](ItemDetailScreen& part) { Enter(part.desc, "the window's box asks nothing"); });
  });
  EXPECT_EQ(Items("desc", "inv_id = '10'"), "thin\n");
}

}  // namespace
}  // namespace kvi::test
