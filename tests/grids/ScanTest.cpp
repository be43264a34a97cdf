#include "grids/ScanField.h"

#include "items/KVI_InventorySummary.h"
#include "ordering/KVI_OrderSystem.h"
#include "partgroups/KVI_PGDetail.h"
#include "partgroups/KVI_PGSummary.h"
#include "stock/KVI_UpdateInventory.h"
#include "support/Story.h"

namespace kvi::test {
namespace {

// A clerk with a scanner, which types a code and Enter. By name: 10 "Belt", 9 "Cap", 77 "Ring",
// 100 "Seal"; 11 is not active, 12 of another profit center.
class ScanTest : public StoryTest {
 protected:
  ScanTest() {
    stockroom.Fill("I_Master",
                   "inv_id | pcenter | name | category | BarCodeScan | w1_id | w2_id | w3_id | "
                   "where1 | optimal | qty_on_hand | hi_qty | active\n"
                   "10 | 0 | Belt | Belts | '40063813 ' | N-1 | N-1 | | Nord | 9 | 4 | 1 | YES\n"
                   "9 | 0 | Cap | Belts | x b 7 | 100 | | S 5 | Nord | 9 | 5 | 1 | YES\n"
                   "77 | 0 | Ring | Seals | 9 | | S5 | | Alpha | 9 | 6 | 1 | YES\n"
                   "100 | 0 | Seal | Seals | ' ' | | | | Alpha | 9 | 7 | 1 | YES\n"
                   "11 | 0 | Old | Seals | OLD | | | | Alpha | 9 | 1 | 1 | NO\n"
                   "12 | 4 | Far | Belts | FAR | N-1 | | | Nord | 9 | 1 | 1 | YES");
    stockroom.Fill("DD_category", "Description\n Belts\n Seals");
    stockroom.Fill("R_Master", "rec_id | pcenter | name\n 7 | 0 | Kit");
  }
  template <class S>
  void Scan(S& screen, const std::string& code) {
    Type(screen.scan.Scan, code);
    EXPECT_TRUE(stockroom.user().PressEnter(screen.scan.Scan));
  }
  static std::string Told(KviScreen& screen) {
    return static_cast<StatusBar*>(screen.Find("StatusBar1"))->PanelText(2);
  }
  // Types a number where the cursor stands, and Enter; whether Enter went back to the scanner.
  bool Count(Spread& grid, const std::string& number) {
    EXPECT_TRUE(stockroom.user().TypeIntoCell(grid, grid.ActiveRow(), grid.ActiveCol(), number));
    return stockroom.user().PressEnter(grid);
  }
};

TEST_F(ScanTest, ABarCodeComesBeforeANumberAndThatBeforeAVendorsNumber) {
  auto& list = The<KVI_InventorySummary>();
  Visit<KVI_InventorySummary>(&Main::Label1, [&] {
    const struct {
      const char *code, *number, *told;
    } scans[] = {
        {"40063813", "10", "Belt  -  10"},
        {" XB 7", "9", "Cap  -  9"},
        {"9", "77", "Ring  -  77"},
        {"100", "100", "Seal  -  100"},
        {"n-1", "10", "Belt  -  10"},
        {"s5", "10", "2 parts of this list have the code \"s5\"."},
        {"n-1", "10", "Belt  -  10"},
        {"4711'x", "10", "No part has the code \"4711'x\"."},
        {"FAR", "10", "No part has the code \"FAR\"."},
        {"old", "11", "Old  -  11"},
        {"", "11", "Old  -  11"},
    };
    for (const auto& [code, number, told] : scans) {
      Scan(list, code);
      EXPECT_EQ(list.Spread1.Text(list.Spread1.ActiveRow(), 4), number) << code;
      EXPECT_EQ(Told(list), told) << code;
    }
    EXPECT_EQ(stockroom.desktop.beeps, 3);
    Choose(list.CatCombo, "Belts");
    Scan(list, "s5");
    EXPECT_EQ(Told(list), "Cap  -  9") << "the other one is not in the list";
    Scan(list, "100");
    EXPECT_EQ(Told(list), "\"100\" is 100 (Seal), which this list does not show.");
    stockroom.Execute("UPDATE I_Master SET BarCodeScan = 'NEW' WHERE inv_id = '10'");
    Choose(list.CatCombo, "(All Categories)");
    Scan(list, "new");
    EXPECT_EQ(Told(list), "Belt  -  10") << "the codes are loaded with the list";
  });
}

TEST_F(ScanTest, AShelfIsCountedByScanNumberEnterScan) {
  auto& screen = The<KVI_UpdateInventory>();
  Spread& grid = screen.Spread1;
  Visit<KVI_UpdateInventory>(&Main::Label6, [&] {
    Scan(screen, "XB7");
    EXPECT_EQ(grid.ActiveCol(), KVI_UpdateInventory::kEntryColumn);
    EXPECT_TRUE(Count(grid, "12"));
    EXPECT_FALSE(Count(grid, "13")) << "once back, Enter goes on as ever";
    Scan(screen, "n-1");
    EXPECT_TRUE(stockroom.user().PressEnter(grid)) << "nothing counted";
    Click(screen.svd);
    Scan(screen, "100");
    EXPECT_TRUE(Count(grid, "40063813")) << "a second scan instead of a number";
    EXPECT_EQ(grid.Text(grid.ActiveRow(), 4), "10");
    EXPECT_TRUE(Count(grid, "3"));
    Scan(screen, "old");
    EXPECT_EQ(Told(screen), "\"old\" is 11 (Old), which this list does not show.");
    Click(screen.save);
    stockroom.user().Choose(screen.TabStrip1, 1);
    Scan(screen, "9");
    EXPECT_EQ(grid.ActiveCol(), KVI_UpdateInventory::kQuantityColumn);
  });
  EXPECT_EQ(stockroom.Rows("SELECT qty_on_hand FROM I_Master WHERE pcenter = 0 ORDER BY name"),
            "3\n13\n1\n6\n7\n");
}

TEST_F(ScanTest, BetweenScansAnOrderIsNotLeft) {
  auto& screen = The<KVI_OrderSystem>();
  Visit<KVI_OrderSystem>(&Main::Label16, [&] {
    Scan(screen, "9");
    EXPECT_EQ(screen.Spread1.ActiveCol(), KVI_OrderSystem::kQuantityColumn);
    EXPECT_TRUE(Count(screen.Spread1, "4"));
    Scan(screen, "n-1");
    ExpectBox("Changes have been made to the spreadsheet.  Do you wish to save now?\nContinue?",
              Answer::No);
    EXPECT_TRUE(stockroom.user().Enter(screen.SortCombo));
  });
}

TEST_F(ScanTest, TheBuilderScansAmongTheAvailableParts) {
  auto& list = The<KVI_PGSummary>();
  auto& builder = The<KVI_PGDetail>();
  Visit<KVI_PGSummary>(&Main::MaintProc, [&] {
    stockroom.desktop.ExpectScreen("KVI_PGDetail", [&] {
      stockroom.user().Select(builder.Spread2, {Block::Row(1), Block::Row(2)});
      for (const char* code : {"100", "xb7"}) {
        Scan(builder, code);
        Click(builder.AddToRecipe);
      }
      EXPECT_EQ(GridText(builder.Spread1, 1, 2).substr(0, 14), "100|Seal\n9|Cap");
      ExpectBox("Changes have been made.  Save before exiting?", Answer::Cancel);
      Click(builder.exit_lab);
    });
    EXPECT_TRUE(stockroom.user().DoubleClick(list.Spread1, 1, 1));
  });
}

}  // namespace
}  // namespace kvi::test
