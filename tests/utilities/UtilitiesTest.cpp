#include "utilities/KVI_Utilities.h"

#include <filesystem>

#include "support/Story.h"
#include "utilities/KVI_ManageDropLIsts.h"

namespace kvi::test {
namespace {

using UtilitiesTest = StoryTest;

TEST_F(UtilitiesTest, EachChangeCountsAtOnceAndIsInTheFileOnLeaving) {
  stockroom.InUtilities([&](auto& screen) {
    EXPECT_TRUE(screen.OptUseFIFO.Value);
    EXPECT_EQ(screen.co_title.Text(), "Harbour Works");
    Type(screen.co_title, "Quay 7");
    Type(screen.SpreadPath, " /usr/bin/calc ");
    stockroom.user().Tick(screen.use_color);
    stockroom.user().Tick(screen.use_osis);
    stockroom.user().Choose(screen.OptUseLast);
    EXPECT_TRUE(stockroom.App().UseColors);
    EXPECT_EQ(stockroom.App().SpreadsheetPath, "/usr/bin/calc");
    EXPECT_EQ(stockroom.Get("CompanyName"), "Harbour Works");
  });
  EXPECT_EQ(stockroom.Get("CompanyName"), "Quay 7");
  EXPECT_EQ(stockroom.Get("VALUATION"), "LASTPRICE");
  EXPECT_EQ(stockroom.Get("UseOldStyleInventoryDetail"), "1");
}

TEST_F(UtilitiesTest, TheDesksOwnColourSchemeCountsFromTheNextStartOn) {
  WriteFile(stockroom.folder / "TARNWK.INI", "[TARNWK]\nDatabasePath=\nColorScheme=6\n");
  const auto schemeAtStart = [&](int shown, int chosen) {
    EXPECT_TRUE(stockroom.Start());
    stockroom.InUtilities([&](auto& screen) {
      EXPECT_EQ(screen.color_scheme.ListIndex(), shown);
      stockroom.user().Choose(screen.color_scheme, chosen);
    });
    const int color = stockroom.MainScreen().BackColor();
    EXPECT_TRUE(stockroom.Exit());
    return color;
  };
  EXPECT_EQ(schemeAtStart(0, 0), kBlue) << "the suite's";
  EXPECT_EQ(schemeAtStart(0, 6), kBlue);
  EXPECT_EQ(schemeAtStart(6, 1), kRed);
  EXPECT_EQ(schemeAtStart(1, 0), kToolkitColor);
  EXPECT_EQ(schemeAtStart(0, 0), kBlue);
}

TEST_F(UtilitiesTest, BothPathsCanBeBrowsedFor) {
  const std::string here = stockroom.folder.Path().string();
  stockroom.InUtilities([&](auto& screen) {
    stockroom.desktop.ExpectFile("Select the spreadsheet program", std::nullopt);
    Click(screen.browse_program);
    EXPECT_EQ(screen.SpreadPath.Text(), stockroom.App().SpreadsheetPath);
    stockroom.desktop.ExpectFile("Select the spreadsheet program", "/usr/bin/calc");
    Click(screen.browse_program);
    EXPECT_EQ(stockroom.App().SpreadsheetPath, "/usr/bin/calc");
    stockroom.desktop.ExpectFile("Select the database", here + "/KV_Inventory.mdb");
    Click(screen.browse_dir);
    EXPECT_EQ(screen.dir_loc.Text(), here);
    stockroom.desktop.ExpectFile("Select the database", "/nowhere/other.mdb");
    ExpectBox("There is a problem locating KV_Inventory.mdb.");
    Click(screen.browse_dir);
    EXPECT_EQ(screen.dir_loc.Text(), "");
  });
}

TEST_F(UtilitiesTest, AClickTakesTheNumberOfTheProfitCenterAndLeavingItsPosition) {
  stockroom.Fill("I_Master", "inv_id | pcenter | name\n 1 | 4 | Bolt\n 2 | 1 | Nut");
  stockroom.App().CurrentProfitCenter = 9;
  stockroom.InUtilities([&](auto& screen) {
    EXPECT_EQ(screen.pcenter.Text(), "Garage");
    EXPECT_EQ(stockroom.App().CurrentProfitCenter, 9) << "showing is not choosing";
    stockroom.user().Tick(screen.use_security);
    stockroom.user().Choose(screen.pcenter, 1);
    EXPECT_FALSE(screen.use_security.Value) << "nobody could sign in";
    EXPECT_EQ(stockroom.App().CurrentProfitCenter, 4);
    EXPECT_EQ(stockroom.App().ItemSet.Text("name"), "Bolt");
    stockroom.user().Leave(screen.pcenter);
    EXPECT_EQ(stockroom.App().CurrentProfitCenter, 1);
    EXPECT_EQ(stockroom.MainScreen().pcenter.ListIndex(), 1);
  });
}

TEST_F(UtilitiesTest, ItsWindowsBoxLeavesTheFieldAndExitsAsTheLabelDoes) {
  const std::string here = stockroom.folder.Path().string();
  stockroom.desktop.ExpectScreen("KVI_Utilities", [&] {
    auto& screen = stockroom.App().Get<KVI_Utilities>();
    Type(screen.co_title, "Quay 7");
    Type(screen.dir_loc, here + "/");
    stockroom.user().CloseWindow(screen);
  });
  Click(stockroom.MainScreen().Label7);
  EXPECT_EQ(stockroom.Get("CompanyName"), "Quay 7");
  EXPECT_EQ(stockroom.App().DatabaseDirectory, here);
}

TEST_F(UtilitiesTest, AFolderWithoutTheDatabaseIsNotTaken) {
  stockroom.InUtilities([&](auto& screen) {
    Type(screen.dir_loc, "/nowhere");
    ExpectBox("There is a problem locating KV_Inventory.mdb.");
    stockroom.user().Leave(screen.dir_loc);
    EXPECT_EQ(screen.dir_loc.Text(), "");
    Type(screen.dir_loc, stockroom.folder.Path().string() + "\\");
    stockroom.user().Leave(screen.dir_loc);
    EXPECT_EQ(screen.dir_loc.Text(), stockroom.folder.Path().string());
  });
  EXPECT_TRUE(stockroom.App().CurrentDatabase.IsOpen());
  EXPECT_EQ(stockroom.App().DatabaseDirectory, stockroom.folder.Path().string());
}

TEST_F(UtilitiesTest, AnotherFoldersDatabaseIsOpenedOnLeavingThoughAScreenStoodBefore) {
  const std::string other = stockroom.folder / "other";
  stockroom.App();
  std::filesystem::create_directory(other);
  std::filesystem::copy_file(stockroom.DatabaseFile(), other + "/KV_Inventory.mdb");
  stockroom.InUtilities([&](auto& screen) {
    Type(screen.dir_loc, other);
    stockroom.desktop.ExpectScreen("KVI_ManageDropLIsts",
                                   [&] { Click(The<KVI_ManageDropLIsts>().exit_lab); });
    Click(screen.Command1);
    EXPECT_EQ(screen.dir_loc.Text(), other);
  });
  EXPECT_EQ(stockroom.App().CurrentDatabase.Path(), other + "/KV_Inventory.mdb");
}

TEST_F(UtilitiesTest, ColumnWidthsAreResetAfterAQuestion) {
  const std::string question =
      "This will reset the spreadsheet column widths to default values for the Inventory Summary, "
      "\nPart Group, and Par Order screens.  Continue?";
  stockroom.InUtilities([&](auto& screen) {
    ExpectBox(question, Answer::No, "Utilities");
    Click(screen.cmdColWidth);
    ExpectBox(question, Answer::Yes, "Utilities");
    ExpectBox("Columns widths have been reset.", Answer::Ok, "Utilities");
    Click(screen.cmdColWidth);
    stockroom.Execute("DELETE * FROM CW_Recipes");
    ExpectBox(question, Answer::Yes, "Utilities");
    Click(screen.cmdColWidth);
  });
  EXPECT_EQ(stockroom.Rows("SELECT DISTINCT ColWidth FROM CW_Orders"), "1500\n");
}

}  // namespace
}  // namespace kvi::test
