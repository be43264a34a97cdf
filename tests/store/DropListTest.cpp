#include "base/RunTimeError.h"
#include "items/KVI_ChooseVendors.h"
#include "items/KVI_InventoryDetail.h"
#include "store/DropDown.h"
#include "store/Schema.h"
#include "support/Story.h"
#include "utilities/KVI_GetILocation.h"
#include "utilities/KVI_ManageDropLIsts.h"
#include "utilities/KVI_Utilities.h"
#include "vendors/KVI_VendorSummary.h"

namespace kvi::test {
namespace {

class DropListTest : public StoryTest {
 protected:
  DropListTest() {
    stockroom.Fill("DD_inv_loc", "Description\n Bin 7\n Aisle 2\n ''");
    stockroom.Fill("DD_category", "Description\n Belts\n Seals\n belts\n ");
    stockroom.Fill("Vendor_Info", "Name | Description\n Zeta | 30 days\n Alpha | \n Nord | cash");
  }
  // Opens the screen as a user does, through Utilities, and closes it by its window's own box.
  void Manage(std::function<void(KVI_ManageDropLIsts&)> user, const std::string& rights = "") {
    ASSERT_TRUE(stockroom.Start(rights));
    stockroom.InUtilities([this, user](auto& utilities) {
      stockroom.desktop.ExpectScreen("KVI_ManageDropLIsts", [this, user] {
        auto& screen = stockroom.App().Get<KVI_ManageDropLIsts>();
        user(screen);
        stockroom.user().CloseWindow(screen);
      });
      Click(utilities.Command1);
    });
  }
  std::string First(const KVI_ManageDropLIsts& screen, int rows) {
    std::string text;
    for (int row = 1; row <= rows; ++row) text += "[" + screen.Spread1.Text(row, 1) + "]";
    return text;
  }
};

TEST_F(DropListTest, ALongListIsFilledDistinctTrimmedAndInOrder) {
  auto& combo = stockroom.App().Get<KVI_ManageDropLIsts>().PaperGoodsCombo;
  FillDropDown(stockroom.App().CurrentDatabase, combo, "DD_category");
  EXPECT_EQ(combo.Items(), (std::vector<std::string>{"Belts", "Seals"}));
  FillDropDown(stockroom.App().CurrentDatabase, combo, "Vendor_Info");
  EXPECT_EQ(combo.Items(), (std::vector<std::string>{"Alpha", "Nord", "Zeta"}));
  EXPECT_EQ(combo.ListIndex(), -1);
  const auto& standing = stockroom.App().Get<KVI_ChooseVendors>().where1;
  EXPECT_EQ(standing.Items(), (std::vector<std::string>{"Zeta", "Alpha", "Nord"}))
      << "standing vendor combos keep the table's order";
}

TEST_F(DropListTest, AListThatCannotBeReadCostsItsOwnCombosAlone) {
  std::vector<jet::TableDef> tables = Schema();
  std::erase_if(tables, [](const jet::TableDef& table) { return table.Name == "DD_category"; });
  stockroom.App().CurrentDatabase = jet::Database::Create(stockroom.folder / "old.mdb", tables);
  stockroom.Fill("DD_inv_loc", "Description\n Shelf");
  stockroom.Fill("Vendor_Info", "Name\n Omega");
  ExpectBox("3078 " + DescriptionOf(3078) + " (DD_category)");
  LoadDropLists(stockroom.App());
  auto& part = stockroom.App().Get<KVI_InventoryDetail>();
  EXPECT_EQ(part.category.ListCount(), 0);
  EXPECT_EQ(part.location.List(0) + part.where1.List(0), "ShelfOmega");
}

TEST_F(DropListTest, TheScreenOpensOnLocationsAndSavesTheListWhole) {
  Manage([&](auto& screen) {
    EXPECT_TRUE(screen.o_iil.Value);
    EXPECT_EQ(screen.o_rc.Caption(), "Part Group Category");
    EXPECT_EQ(First(screen, 4), "[][Aisle 2][Bin 7][]");
    stockroom.user().TypeIntoCell(screen.Spread1, 5, 1, "  Cage 1 ");
    stockroom.user().TypeIntoCell(screen.Spread1, 6, 1, std::string(60, 'x'));
    Click(screen.Save);
  });
  EXPECT_EQ(stockroom.Rows("SELECT Description FROM DD_inv_loc ORDER BY Description"),
            "\nAisle 2\nBin 7\nCage 1\n" + std::string(50, 'x') + "\n")
      << "the row without a text survives, new ones are trimmed and cut while typing";
}

TEST_F(DropListTest, RemovingAndSortingSaveAtOnce) {
  Manage([&](auto& screen) {
    stockroom.user().Choose(screen.o_iic);
    stockroom.user().GoToCell(screen.Spread1, 2, 1);
    ExpectBox("Are you sure you want to remove this row?", Answer::No, "Set Drop Info");
    Click(screen.remove);
    ExpectBox("Are you sure you want to remove this row?", Answer::Yes, "Set Drop Info");
    Click(screen.remove);
    EXPECT_EQ(stockroom.Rows("SELECT Description FROM DD_category WHERE Len(Description) > 0"),
              "belts\nSeals\n");
    stockroom.user().TypeIntoCell(screen.Spread1, 5, 1, "Fuses");
    Click(screen.sort_lab);
    EXPECT_EQ(First(screen, 3), "[belts][Fuses][Seals]");
    stockroom.user().TypeIntoCell(screen.Spread1, 4, 1, "Valves");
    stockroom.user().AdvancePastLastCell(screen.Spread1);
  });
  EXPECT_EQ(stockroom.Rows("SELECT Description FROM DD_category WHERE Len(Description) > 0"),
            "belts\nFuses\nSeals\nValves\n");
}

// Sorted by name, but it is the description that is shown and written, and only vendors with one
// are taken out before.
TEST_F(DropListTest, TheVendorListKeepsDescriptions) {
  Manage([&](auto& screen) {
    stockroom.user().Choose(screen.o_wto);
    EXPECT_EQ(First(screen, 4), "[][cash][30 days][]");
    Click(screen.Save);
    stockroom.desktop.ExpectScreen("KVI_VendorSummary", [this] {
      stockroom.user().CloseWindow(stockroom.App().Get<KVI_VendorSummary>());
    });
    Click(screen.vendors);
  });
  EXPECT_EQ(stockroom.Rows("SELECT Name, Description FROM Vendor_Info"),
            "Alpha|Null\nNull|cash\nNull|30 days\n");
}

TEST_F(DropListTest, EditsAreNotLostWithoutAQuestion) {
  Manage([&](auto& screen) {
    stockroom.user().TypeIntoCell(screen.Spread1, 4, 1, "Cage 1");
    ExpectBox("Changes have been made.  Save before exiting?", Answer::Yes);
    stockroom.user().Choose(screen.o_hub);
    stockroom.user().TypeIntoCell(screen.Spread1, 1, 1, "litre");
    ExpectBox("Changes have been made.  Save before exiting?", Answer::No);
  });
  EXPECT_EQ(stockroom.Rows("SELECT Description FROM DD_inv_loc WHERE Len(Description) > 0"),
            "Aisle 2\nBin 7\nCage 1\n");
  EXPECT_EQ(stockroom.Rows("SELECT Description FROM DD_how_used"), "");
}

TEST_F(DropListTest, ASaveThatIsGivenUpKeepsWhatWasTypedAndItsList) {
  Manage([&](auto& screen) {
    jet::Database other = jet::Database::Open(stockroom.DatabaseFile(), false);
    jet::Recordset theirs = other.OpenRecordset("SELECT * FROM Vendor_Info");
    stockroom.user().TypeIntoCell(screen.Spread1, 4, 1, "Cage 1");
    theirs.Edit();
    ExpectBox("Changes have been made.  Save before exiting?", Answer::Yes);
    ExpectLock(Answer::No);
    stockroom.user().Choose(screen.o_hub);
    EXPECT_TRUE(screen.o_iil.Value);
    EXPECT_EQ(First(screen, 4), "[][Aisle 2][Bin 7][Cage 1]");
    theirs.CancelUpdate();
    Click(screen.Save);
  });
  EXPECT_EQ(stockroom.Rows("SELECT Description FROM DD_inv_loc WHERE Len(Description) > 0"),
            "Aisle 2\nBin 7\nCage 1\n");
}

TEST_F(DropListTest, WithoutTheWriteRightNothingIsSaved) {
  Manage(
      [&](auto& screen) {
        stockroom.user().TypeIntoCell(screen.Spread1, 2, 1, "Changed");
        const std::string refusal =
            "Full Access to Utilities required for this option.\n\nChanges NOT Saved";
        ExpectBox(refusal);
        Click(screen.Save);
        ExpectBox("Changes have been made.  Save before exiting?", Answer::No);
      },
      "/S:WW1W");
  EXPECT_EQ(stockroom.Rows("SELECT Description FROM DD_inv_loc"), "Bin 7\nAisle 2\n\n");
}

TEST_F(DropListTest, TheListPrintsUnderTheProductsName) {
  Manage([&](auto& screen) {
    ExpectDraftPrint();
    Click(screen.print_lab);
    stockroom.user().Type(screen.PaperGoodsCombo, " ");
    EXPECT_EQ(screen.PaperGoodsCombo.Text(), "Paper Goods");
  });
  EXPECT_EQ(stockroom.desktop.documents.size(), 1U);
  ExpectOnPaper({"| Kestvar Inventory", "| Description", "| Aisle 2", "| Page: 1"});
}

TEST_F(DropListTest, TheLocationScreenKeepsWhatWasAnswered) {
  auto& screen = stockroom.App().Get<KVI_GetILocation>();
  stockroom.desktop.ExpectScreen("KVI_GetILocation", [&] {
    stockroom.desktop.ExpectFile("Select Data File", "/data/KV_Inventory.mdb");
    Click(screen.save);
    Click(screen.Label12);
  });
  stockroom.App().screens.ShowModal(screen);
  EXPECT_EQ(stockroom.App().DataFilePath, "/data/KV_Inventory.mdb");
  EXPECT_FALSE(stockroom.App().DataFileCancelled);
  stockroom.desktop.ExpectScreen("KVI_GetILocation", [&] {
    stockroom.user().Type(screen.txtPath, "elsewhere");
    Click(screen.Label11);
  });
  stockroom.App().screens.ShowModal(screen);
  EXPECT_TRUE(stockroom.App().DataFileCancelled);
  EXPECT_EQ(stockroom.App().DataFilePath, "/data/KV_Inventory.mdb");
}

}  // namespace
}  // namespace kvi::test
