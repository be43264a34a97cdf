#include "base/RunTimeError.h"
#include "items/DetailStory.h"
#include "store/Schema.h"

namespace kvi::test {
namespace {

class ItemLoadTest : public DetailStoryTest {};
INSTANTIATE_TEST_SUITE_P(Views, ItemLoadTest, kBothViews, ViewName);

TEST_P(ItemLoadTest, ShowsThePartUnderItsNumber) {
  stockroom.Fill("R_Master", "rec_id | name\n A | Pump\n B | Gearbox");
  stockroom.Fill("Inv_Recipe", "rec_id | inv_id\n A | 10\n A | 10\n B | 10\n B | 20");
  WithPart(1, [&](ItemDetailScreen& part) {
    EXPECT_EQ(part.Caption(), "Detail - Belt");
    EXPECT_EQ(Texts(part.i_num, part.iname, part.category, part.location, part.desc, part.notes,
                    part.BarCodeScanId),
              "10|Belt|Belts|Bin 2|wide|dry place|0815");
    EXPECT_EQ(Texts(part.hp_qty, part.how_purchased, part.hi_qty, part.how_inv, part.hu_qty,
                    part.how_used, part.hp_cost_per, part.hi_cost_per, part.hu_cost_per),
              "1|case|12|box|10|belt|100.0000|8.3333|0.8333");
    EXPECT_EQ(Texts(part.qty_on_hand, part.valuation, part.re_order, part.optimal),
              "14.50|1450.00|2|20");
    EXPECT_EQ(Texts(part.where1, part.v_id1, part.Price1, part.where2, part.v_id2, part.Price2,
                    part.where3, part.v_id3, part.Price3),
              "Nord|N7|99.5|Alpha|A7|101.25|||0");
    EXPECT_TRUE(part.active_i.Value && part.VendorOpt2.Value && part.VendorOpt1.Enabled);
    EXPECT_FALSE(part.VendorOpt3.Enabled);
    EXPECT_EQ(part.RecipeList.Items(), (std::vector<std::string>{"Gearbox", "Pump"}));
    EXPECT_EQ(part.HowInvFormula.Caption(), "1 case = 12 box(s)");
    EXPECT_TRUE(part.i_num.Locked && part.btnCID.Enabled && !part.ItemDirty());
    EXPECT_EQ(part.category.Items(), (std::vector<std::string>{"Belts", "Seals"}));
    EXPECT_EQ(part.where3.Items(), (std::vector<std::string>{"Alpha", "Nord"}));
  });
  EXPECT_FALSE(stale) << "an opened part is no changed one";
}

// What the layouts do differently, beside what they say.
TEST_P(ItemLoadTest, OnlyTheTabsReadTheCorporateFlagAndShowThePurchaseSize) {
  InSummary([&] {
    OpenRow(2, [&](ItemDetailScreen& part) {
      EXPECT_TRUE(stockroom.user().Choose(part.rbNCII));
      EXPECT_EQ(part.Find("LblPurchaseSize") == nullptr, OnePage());
      EXPECT_EQ(part.Find("SSTab1") == nullptr, OnePage());
      if (part.LblPurchaseSize) {
        EXPECT_EQ(part.LblPurchaseSize->Caption(), "Price per bag:");
      }
    });
    OpenRow(1, [&](ItemDetailScreen& part) {
      EXPECT_EQ(part.rbCII.Value(), !OnePage()) << "the choice of the part before";
    });
  });
}

TEST_P(ItemLoadTest, NullReadsAsEmptyOrZeroAndAnOddVendorNumberChoosesNone) {
  stockroom.Execute("DELETE * FROM I_Master");
  stockroom.Fill("I_Master", "inv_id | pcenter | name | VendorOptNo\n 5 | 0 | Bare | 4");
  WithPart(1, [&](ItemDetailScreen& part) {
    EXPECT_EQ(Texts(part.category, part.desc, part.how_purchased, part.hi_qty, part.optimal,
                    part.qty_on_hand, part.hp_cost_per, part.Price1, part.BarCodeScanId),
              "|||0|0|0.00|0.0000|0|");
    EXPECT_TRUE(part.n_active_i.Value);
    EXPECT_FALSE(part.VendorOpt1.Value || part.VendorOpt2.Value || part.VendorOpt3.Value);
  });
}

TEST_P(ItemLoadTest, FieldsRecomputeWhenTheyAreLeftAndNotBefore) {
  WithPart(1, [&](ItemDetailScreen& part) {
    stockroom.user().Type(part.hp_cost_per, "50.123456");
    EXPECT_EQ(Texts(part.hp_cost_per, part.hi_cost_per), "50.123456|8.3333");
    EXPECT_TRUE(part.ItemDirty());
    stockroom.user().Leave(part.hp_cost_per);
    EXPECT_EQ(Texts(part.hp_cost_per, part.hi_cost_per), "50.1235|4.1770");
    Enter(part.qty_on_hand, "3.999");
    EXPECT_EQ(Texts(part.qty_on_hand, part.valuation), "4.00|200.49");
    Enter(part.how_inv, std::string(60, 'x'));
    EXPECT_EQ(part.lblCostHowInv.Caption(), "Cost Per " + std::string(50, 'x') + ":");
    Enter(part.category, std::string(60, 'c'));
    EXPECT_EQ(part.category.Text(), std::string(50, 'c'));
    Enter(part.hi_qty, "0");
    EXPECT_EQ(Texts(part.hi_cost_per, part.hu_cost_per), "0.00|0.0000");
    ExpectBox("How Used Quantity cannot be zero or less.  Setting to 1.");
    Enter(part.hu_qty, "0");
    EXPECT_EQ(part.hu_qty.Text(), "1");
    Enter(part.optimal, "");
    EXPECT_EQ(part.optimal.Text(), "0");
    Enter(part.iname, "O'Ring \"A\" & B");
    EXPECT_EQ(part.iname.Text() + "|" + part.Caption(), "ORing A  B|Detail - ORing A  B");
    Enter(part.where2, "");
    EXPECT_FALSE(part.VendorOpt2.Enabled || part.VendorOpt2.Value);
    Click(part.cmdAddOnHand);
    EXPECT_EQ(Texts(part.qty_on_hand, part.valuation), "5|$250.62");
  });
  EXPECT_TRUE(stale) << "the used cost changed";
}

TEST_P(ItemLoadTest, EachListedControlMarksThePartAsChanged) {
  InSummary([&] {
    for (const char* name :
         {"BarCodeScanId", "desc",          "hi_qty",   "hp_cost_per", "hu_qty",   "iname",
          "notes",         "optimal",       "Price1",   "Price2",      "Price3",   "qty_on_hand",
          "re_order",      "v_id1",         "v_id2",    "v_id3",       "category", "location",
          "how_inv",       "how_purchased", "how_used", "where1",      "where2",   "where3",
          "n_active_i",    "VendorOpt1"})
      OpenRow(1, [&](ItemDetailScreen& part) {
        Control* control = part.Find(name);
        if (auto* box = dynamic_cast<TextBox*>(control)) stockroom.user().Type(*box, "7");
        if (auto* combo = dynamic_cast<ComboBox*>(control)) stockroom.user().Type(*combo, "7");
        if (auto* choice = dynamic_cast<OptionButton*>(control)) stockroom.user().Choose(*choice);
        EXPECT_TRUE(part.ItemDirty()) << name;
      });
    OpenRow(1, [&](ItemDetailScreen& part) {
      stockroom.user().Choose(part.category, 1);
      EXPECT_TRUE(part.ItemDirty()) << "picking an entry";
    });
  });
}

TEST_P(ItemLoadTest, StepsAlongTheGridWithPlainNumbersAndThePricesOfThePartBefore) {
  stockroom.Execute("UPDATE I_Master SET qty_on_hand = 8.5 WHERE inv_id = '20'");
  InSummary([&] {
    OpenRow(1, [&](ItemDetailScreen& part) {
      ExpectBox(OnePage() ? "Already at beginning of recordset"
                          : "Already at beginning of the list.");
      Click(part.previous_lab);
      Click(part.next_lab);
      EXPECT_EQ(part.Caption(), "Detail - Ring");
      EXPECT_EQ(Texts(part.i_num, part.location, part.qty_on_hand, part.optimal, part.valuation),
                "20||8.5||21.25");
      EXPECT_EQ(Texts(part.Price1, part.Price2), "99.5|101.25");
      EXPECT_TRUE(part.VendorOpt2.Value && part.rbNCII.Value && part.n_active_i.Value);
      Enter(part.desc, "steel");
      Click(part.next_lab);
      EXPECT_EQ(Items("desc, Price1, VendorOptNo", "inv_id = '20'"), "steel|99.5|2\n")
          << "saved without asking, with the prices of the part before";
      stockroom.user().Type(part.desc, "last");
      ExpectBox("Already at end of recordset");
      Click(part.next_lab);
      EXPECT_EQ(Texts(part.i_num, part.desc), "30|last");
      EXPECT_EQ(Items("desc", "inv_id = '30'"), "last\n");
    });
    EXPECT_EQ(Summary().Spread1.ActiveRow(), 3);
    EXPECT_EQ(Summary().Spread1.Text(2, 5), "steel");
  });
}

// The part before may neither show under the number of one that is gone nor be saved there.
TEST_P(ItemLoadTest, APartThatIsGoneShowsBlankFieldsThatNoSaveTakes) {
  const auto triesToSave = [&](ItemDetailScreen& part) {
    EXPECT_EQ(Texts(part.i_num, part.iname, part.category, part.hp_cost_per, part.hi_qty,
                    part.Price1, part.v_id1, part.hu_cost_per),
              "20|||||||");
    EXPECT_FALSE(part.ItemDirty());
    Enter(part.desc, "mine");
    ExpectBox("Part 20 could not be loaded.\n\nChanges NOT Saved", Answer::Ok, "KV Inventory");
    Click(part.save);
    ExpectBox("Change not made.");
    Click(part.btnCID);
  };
  InSummary([&] {
    stockroom.user().Choose(Summary().ManualRefresh);
    Click(Summary().refresh_lab);
    ExpectBox("Are you sure you want to remove this item?", Answer::Yes, "- Remove");
    stockroom.user().GoToCell(Summary().Spread1, 2, 1);
    Click(Summary().remove);
    OpenRow(1, [&](ItemDetailScreen& part) {
      Click(part.next_lab);
      triesToSave(part);
      ExpectBox("Part 20 could not be loaded.\n\nChanges NOT Saved", Answer::Ok, "KV Inventory");
      Click(part.next_lab);
      EXPECT_EQ(Texts(part.i_num, part.iname), "30|Seal");
      OtherDesk().Execute("DELETE * FROM I_Master WHERE inv_id = '30'");
      Enter(part.desc, "kept");
      Click(part.save);
    });
    Click(Summary().refresh_lab);
    OtherDesk().Execute("UPDATE I_Master SET inv_id = '20' WHERE inv_id = '30'");
    OpenRow(2, [&](ItemDetailScreen& part) { EXPECT_EQ(part.iname.Text(), ""); });
  });
  EXPECT_EQ(Items("inv_id, desc"), "10|wide\n20|kept\n") << "a save adds what is not there";
}

TEST_P(ItemLoadTest, APartUnderAnotherDesksLockShowsBlankFieldsThatNoSaveTakes) {
  InSummary([&] {
    OpenRow(1, [&](ItemDetailScreen& part) {
      jet::Database other = jet::Database::Open(stockroom.DatabaseFile(), true);
      ExpectBox("3260 " + DescriptionOf(3260));
      Click(part.next_lab);
      EXPECT_EQ(Texts(part.i_num, part.iname, part.qty_on_hand), "20||");
      other.Close();
      ExpectBox(OnePage() ? "Already at beginning of recordset"
                          : "Already at beginning of the list.");
      Click(part.previous_lab);
      Click(part.previous_lab);
      Enter(part.desc, "narrow");
      Click(part.next_lab);
      EXPECT_EQ(Texts(part.i_num, part.iname, part.qty_on_hand), "20|Ring|8");
    });
  });
  EXPECT_EQ(Items("name, desc"), "Belt|narrow\nRing|Null\nSeal|Null\n");
}

TEST_P(ItemLoadTest, AQuoteInANumberIsTheEnginesErrorAndNothingMore) {
  stockroom.Fill("I_Master", "inv_id | pcenter | name\n 4'4 | 0 | Angle");
  const auto expectErrorOf = [&](const std::string& sql) {
    try {
      stockroom.Rows(sql);
      ADD_FAILURE() << sql;
    } catch (const RunTimeError& error) {
      ExpectBox("3075 " + error.Description);
    }
  };
  InSummary([&] {
    expectErrorOf("SELECT * FROM I_Master WHERE Trim(Inv_ID) = '4'4';");
    OpenRow(1, [&](ItemDetailScreen& part) { EXPECT_EQ(part.i_num.Text(), "4'4"); });
    OpenRow(2, [&](ItemDetailScreen& part) {
      expectErrorOf("SELECT * FROM I_Master WHERE lTrim(rtrim(Inv_ID)) = '4'4';");
      Click(part.previous_lab);
      EXPECT_FALSE(part.ItemDirty()) << "or the next step would save the belt under this number";
    });
  });
}

TEST_P(ItemLoadTest, AFieldThatCannotBeReadLeavesItsControlAsItWas) {
  std::vector<jet::TableDef> tables = Schema();
  std::erase_if(tables, [](const jet::TableDef& table) { return table.Name == "DD_how_used"; });
  std::erase_if(tables[0].Fields, [](const jet::FieldDef& field) { return field.Name == "notes"; });
  stockroom.App().CurrentDatabase = jet::Database::Create(stockroom.folder / "old.mdb", tables);
  stockroom.Fill("I_Master", "inv_id | pcenter | name | cost_per\n 1 | 0 | Nut | 5");
  InSummary([&] {
    Detail().notes.Text = "as it was";
    ExpectBox("3078 " + DescriptionOf(3078) + " (DD_how_used)");
    ExpectBox("3265 " + DescriptionOf(3265) + " (notes)");
    OpenRow(1, [&](ItemDetailScreen& part) {
      EXPECT_EQ(Texts(part.iname, part.notes, part.hp_cost_per), "Nut|as it was|5.0000");
      EXPECT_FALSE(part.ItemDirty());
    });
  });
}

TEST_P(ItemLoadTest, TheValuationIsThatOfTheMethodAndAFailedAverageIsSaid) {
  stockroom.Set("VALUATION", "WEIGHTED");
  stockroom.Fill("Hist_Purchases",
                 "inv_id | p_date | p_qty | price\n 10 | 2026-01-05 | 10 | 1\n"
                 " 10 | 2026-02-05 | 30 | 2\n 20 | 2026-01-05 | 0 | 9");
  InSummary([&] {
    OpenRow(1, [&](ItemDetailScreen& part) {
      Enter(part.qty_on_hand, "4");
      EXPECT_EQ(part.valuation.Text(), "7.00");
      Click(part.save);
      EXPECT_EQ(Items("valuation", "inv_id = '10'"), "400\n") << "stored as the plain product";
      EXPECT_EQ(part.valuation.Text(), "7.00");
    });
    ExpectBox("11 Division by zero");
    OpenRow(2, [&](ItemDetailScreen& part) {
      EXPECT_EQ(Texts(part.iname, part.valuation), "Ring|0.00");
      EXPECT_EQ(part.Label5.Caption(), "Re-Order Level (bag):");
    });
  });
}

TEST_P(ItemLoadTest, UseVendorPriceOffersTheCurrentVendorsPrice) {
  WithPart(1, [&](ItemDetailScreen& part) {
    ExpectBox("Use price for vendor no. 2 as current price?", Answer::No, "PBI");
    part.UseVendorPrice();
    EXPECT_EQ(part.hp_cost_per.Text(), "100.0000");
    ExpectBox("Use price for vendor no. 2 as current price?", Answer::Yes, "PBI");
    part.UseVendorPrice();
    EXPECT_EQ(Texts(part.hp_cost_per, part.hi_cost_per), "101.2500|8.4375");
    EXPECT_TRUE(part.ItemDirty());
  });
}

}  // namespace
}  // namespace kvi::test
