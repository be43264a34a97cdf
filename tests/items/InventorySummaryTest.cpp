#include "base/RunTimeError.h"
#include "grids/SprdSubs.h"
#include "items/KVI_InventorySummary.h"
#include "store/Schema.h"
#include "support/Story.h"

namespace kvi::test {
namespace {

class InventorySummaryTest : public ScreenStory<KVI_InventorySummary> {
 protected:
  InventorySummaryTest() {
    stockroom.Fill("DD_category", "Description\n Belts\n Seals");
    stockroom.Fill("Vendor_Info", "Name\n Nord\n Alpha");
    stockroom.Fill("I_Master",
                   "inv_id | pcenter | name | desc | category | location | where1 | where2 | "
                   "account | active\n"
                   "10 | 0 | Belt B54 | wide | Belts | Bin 2 | Nord | Alpha | 3 | YES\n"
                   "9 | 0 | Seal 20 | narrow | Seals | Bin 1 | Alpha | Nord | 1 | NO\n"
                   "100 | 0 | belt A20 | apart | belts | Bin 3 | nord | | 2 | yes\n"
                   "11 | 4 | Elsewhere | | Belts | Bin 9 | Nord | | 4 | YES");
  }
  void Open(const Acts& user) { Visit<KVI_InventorySummary>(&Main::Label1, user); }
  std::string Numbers() { return Column(4); }
  void Search(const std::string& words) { Type(Screen().search.Search, words); }
};

TEST_F(InventorySummaryTest, ShowsThe21ColumnsOfTheProfitCenterWithNullAsEmpty) {
  stockroom.Execute("DELETE * FROM I_Master");
  stockroom.Fill(
      "I_Master",
      "inv_id | pcenter | name | category | location | desc | how_purchased | cost_per | "
      "qty_on_hand | how_inv | hi_qty | how_used | hu_qty | re_order | optimal | active | "
      "where1 | w1_id | where2 | w2_id | where3 | w3_id\n"
      "7 | 0 | Belt | Belts | Bin 2 | wide | case | 12.34565 | 2.345 | box | 12 | each | "
      "100 | 1 | 1000000 | yes | Nord | N7 | Alpha | A7 | Omega | O7\n"
      "8 | 0 | Seal | | | | | | | each | | each | | | | |");
  stockroom.App().UseColors = true;
  // The start repaired what a part needs; the other holes stay.
  Open([&] {
    EXPECT_EQ(GridText(Grid()),
              "Belt|Belts|Bin 2|7|wide|case|$ 12.3457|2.35|box|12.00|each|100.00|1.00|1000000.00|"
              "Active|Nord|N7|Alpha|A7|Omega|O7\n"
              "Seal|||8|||$ 0.0000|0.00|each||each|1.00|0.00||Not-Active||||||\n");
    EXPECT_EQ(Grid().Text(0, 4), "Part #");
    EXPECT_EQ(Grid().Text(0, 21), "Where 3 ID#");
    EXPECT_TRUE(Grid().Format(1, 1).Lock);
    EXPECT_EQ(Grid().Format(2, 1).BackColor, kLightGrey);
    EXPECT_EQ(Screen().StatusBar1.PanelText(1), "1 of 2 records");
  });
}

TEST_F(InventorySummaryTest, FiltersByCategoryAndByTheFirstVendorOnly) {
  Open([&] {
    EXPECT_EQ(Numbers(), "100\n10\n9\n") << "by name, whatever its case; inactive ones too";
    Choose(Screen().CatCombo, "Belts");
    EXPECT_EQ(Numbers(), "100\n10\n");
    Choose(Screen().VendorCombo, "Alpha");
    EXPECT_EQ(Numbers(), "");
    EXPECT_EQ(Screen().StatusBar1.PanelText(1), "0 of 0 records");
    Choose(Screen().CatCombo, "(All Categories)");
    EXPECT_EQ(Numbers(), "9\n") << "a second vendor does not count";
    EXPECT_EQ(Grid().ActiveRow(), 1);
    EXPECT_EQ(stockroom.App().CurrentOrderVendor, "Alpha");
    Choose(Screen().CatCombo, "Seals");
  });
  Open([&] {
    EXPECT_EQ(Screen().CatCombo.Text(), "Seals") << "the category survives leaving";
    EXPECT_EQ(Screen().VendorCombo.Text(), "(All Vendors)") << "the vendor does not";
    EXPECT_EQ(Numbers(), "9\n");
  });
  EXPECT_EQ(stockroom.App().CurrentOrderVendor, "Alpha") << "opening is not choosing";
  EXPECT_TRUE(stockroom.Exit());
  EXPECT_EQ(stockroom.Get("CurrentInventoryCategory"), "Seals");
}

TEST_F(InventorySummaryTest, ASearchNarrowsTheRowsAsItIsTypedAndEscapeBringsThemBack) {
  stockroom.Execute("UPDATE I_Master SET w2_id = 'NX-7' WHERE inv_id = '9'");
  Open([&] {
    const auto told = [&] { return Screen().StatusBar1.PanelText(2); };
    const std::pair<const char*, const char*> cases[] = {
        {"BEL", "100\n10\n"}, {" b54  bin ", "10\n"}, {"bin 54", "10\n"},
        {"2bin", ""},         {"nx-7", "9\n"},        {"apart", "100\n"},
        {"100", "100\n"},     {"Nord", ""},           {"", "100\n10\n9\n"}};
    for (const auto& [words, numbers] : cases) {
      Search(words);
      EXPECT_EQ(Numbers(), numbers) << words;
    }
    stockroom.user().GoToCell(Grid(), 2, 4);
    Search("wide");
    EXPECT_EQ(told(), "1 of 3 parts   |   Belt B54  -  10  -  wide");
    EXPECT_EQ(Screen().StatusBar1.PanelText(1), "1 of 1 records");
    EXPECT_TRUE(stockroom.user().PressEscape(Screen().search.Search));
    EXPECT_EQ(Grid().ActiveRow(), 2) << "the active row is the same part";
    EXPECT_EQ(told(), "Belt B54  -  10  -  wide");

    Search("bin");
    Choose(Screen().CatCombo, "Belts");
    stockroom.user().ClickHeading(Grid(), 4);
    EXPECT_EQ(Numbers(), "10\n100\n");
    Search("a20");
    ExpectBox("Are you sure you want to remove this item?", Answer::Yes, "- Remove");
    Click(Screen().remove);
    EXPECT_EQ(told(), "0 of 1 part");
    ExpectBox("Cannot remove. No records were selected.");
    Click(Screen().remove);
    ExpectBox(
        "You have made changes that could affect part group costs.\n\nWould you like to "
        "update part group costs at this time?",
        Answer::No, "Update Part Group Costs");
  });
  Open([&] { EXPECT_EQ(Numbers(), "10\n") << "a search ends with its visit"; });
}

TEST_F(InventorySummaryTest, SortsByTheChoiceAndNumbersAsText) {
  Open([&] {
    const std::pair<const char*, const char*> cases[] = {{"Description", "100\n9\n10\n"},
                                                         {"Location", "9\n10\n100\n"},
                                                         {"Category", "100\n10\n9\n"},
                                                         {"#", "10\n100\n9\n"},
                                                         {"Name", "100\n10\n9\n"}};
    for (const auto& [choice, numbers] : cases) {
      Choose(Screen().SortCombo, choice);
      EXPECT_EQ(Numbers(), numbers) << choice;
    }
    EXPECT_EQ(Screen().SortCombo.IndexOf("Line #"), -1);
  });
}

TEST_F(InventorySummaryTest, ManualRefreshLeavesTheGridEmptyUntilAsked) {
  Open([&] {
    EXPECT_FALSE(stockroom.user().Click(Screen().refresh_lab)) << "disabled under auto refresh";
    stockroom.user().Choose(Screen().ManualRefresh);
    EXPECT_EQ(Screen().Label2.Caption(),
              "(Double-Click on an item to view detail  information, Click Refresh before sorting "
              "or deleting)");
  });
  Open([&] {
    EXPECT_EQ(Numbers(), "");
    stockroom.user().Click(Screen().refresh_lab);
    EXPECT_EQ(Numbers(), "100\n10\n9\n");
    Choose(Screen().CatCombo, "Seals");
    EXPECT_EQ(Numbers(), "9\n") << "a filter reloads under manual refresh too";
    stockroom.user().Choose(Screen().AutoRefresh);
    EXPECT_EQ(Screen().Label2.Caption(), "(Double-Click on an item to view detail  information)");
  });
}

TEST_F(InventorySummaryTest, ACategoryThatLeftTheListFallsBackToAll) {
  stockroom.Set("CurrentInventoryCategory", "Gone");
  Open([&] {
    EXPECT_EQ(Screen().CatCombo.Text(), "(All Categories)");
    EXPECT_EQ(Numbers(), "100\n10\n9\n");
  });
}

TEST_F(InventorySummaryTest, AListThatCannotBeReadCostsItsFilterAlone) {
  std::vector<jet::TableDef> tables = Schema();
  std::erase_if(tables, [](const jet::TableDef& table) { return table.Name == "DD_category"; });
  stockroom.App().CurrentDatabase = jet::Database::Create(stockroom.folder / "old.mdb", tables);
  stockroom.Fill("Vendor_Info", "Name\n Nord");
  stockroom.Fill("I_Master",
                 "inv_id | pcenter | name | where1\n 1 | 0 | Nut | Nord\n 2 | 0 | Bolt |");
  ExpectBox("3078 " + DescriptionOf(3078) + " (DD_category)");
  Open([&] {
    EXPECT_EQ(Numbers(), "2\n1\n");
    Choose(Screen().VendorCombo, "Nord");
    EXPECT_EQ(Numbers(), "1\n");
  });
}

TEST_F(InventorySummaryTest, ColumnWidthsAreKeptForTheInstallation) {
  Open([&] {
    Grid().SetColWidth(1, 3210);
    Grid().SetColWidth(2, 20);
  });
  Open([&] {
    EXPECT_EQ(Grid().ColWidth(1), 3210);
    EXPECT_EQ(Grid().ColWidth(2), 150) << "a column dragged shut comes back visible";
  });
}

// A quote in a category breaks the concatenated statement: the load ends without a word, and
// nothing else runs from that text.
TEST_F(InventorySummaryTest, AQuoteInACategoryBreaksTheStatementAndNothingMore) {
  stockroom.Fill("DD_category", "Description\n O'Ring\n x'; DELETE * FROM I_Master; --");
  Open([&] {
    Choose(Screen().CatCombo, "O'Ring");
    Choose(Screen().CatCombo, "x'; DELETE * FROM I_Master; --");
    Choose(Screen().CatCombo, "(All Categories)");
    EXPECT_EQ(Numbers(), "100\n10\n9\n");
  });
}

TEST_F(InventorySummaryTest, PrintsTheGridUnderCompanyTitleAndDate) {
  Open([&] {
    ExpectDraftPrint();
    stockroom.user().Click(Screen().print_lab);
    stockroom.desktop.DocumentSaved("/printed/List.pdf");
    EXPECT_EQ(Screen().StatusBar1.PanelText(2), "Printed to /printed/List.pdf");
  });
  EXPECT_EQ(stockroom.desktop.documents.size(), 1U);
  ExpectOnPaper({"| Harbour Works", "| Inventory Maintenance", "| 3/9/2026", "| Page: 1"});
}

TEST_F(InventorySummaryTest, ExportsForTheSpreadsheetProgram) {
  std::string file;
  Open([&] { file = ExportedBy(Screen().m_export); });
  EXPECT_EQ(file.substr(0, file.find("\tDesc")), "Name\tCategory\tLocation\tPart #");
  EXPECT_EQ(std::count(file.begin(), file.end(), '\n'), 4);
}

TEST_F(InventorySummaryTest, OverASigned16BitCountTheLoadEndsWithTheRowsReached) {
  {
    jet::Database database = jet::Database::Open(stockroom.DatabaseFile(), false);
    jet::WriteBatch batch(database);
    jet::Recordset items = database.OpenRecordset("SELECT * FROM I_Master");
    for (int i = 0; i < 32766; ++i) {
      items.AddNew();
      items.Set("inv_id", 100000 + i);
      items.Set("pcenter", 0);
      items.Update();
    }
    batch.Finish();
  }
  Open([&] {
    EXPECT_EQ(Grid().MaxRows(), 32767);
    Search("132765");
    EXPECT_EQ(Numbers(), "132765\n") << "the search reaches the others too";
    EXPECT_EQ(Screen().StatusBar1.PanelText(2).find("1 of 32769 parts"), 0U);
    stockroom.user().PressEscape(Screen().search.Search);
    EXPECT_EQ(Grid().MaxRows(), 32767);
  });
}

}  // namespace
}  // namespace kvi::test
