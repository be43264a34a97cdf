#include "base/RunTimeError.h"
#include "frame/Manual.h"
#include "support/Story.h"

namespace kvi::test {
namespace {

// The load of Main, the settings it reads, and the way out.
class StartUpTest : public StoryTest {};

TEST_F(StartUpTest, ReadyToWorkWithDefaultsOfADesk) {
  Application& app = stockroom.App();
  EXPECT_EQ(app.AccessString, "WWWW");
  EXPECT_EQ(app.CurrentCategory, "(All Categories)");
  EXPECT_EQ(app.CurrentOrderVendor, "(All Vendors)");
  EXPECT_EQ(app.DayNames[1] + " " + app.DayNames[7], "Sunday Saturday");
  EXPECT_TRUE(app.CurrentEmployeeCode.IsNull());
  EXPECT_EQ(app.settings.Valuation, ValuationMethod::FIFO);
  EXPECT_EQ(stockroom.MainScreen().lblVersion.Caption(), "Version 1.0.0");
  EXPECT_EQ(stockroom.MainScreen().pcenter.Text(), "Stores");
  EXPECT_EQ(stockroom.desktop.Pointer(), MousePointer::Default);
  EXPECT_TRUE(stockroom.desktop.clipboardCleared);
  EXPECT_EQ(stockroom.desktop.openWindows, std::vector<std::string>{"Main"});
}

TEST_F(StartUpTest, RightsComeFromFixedPositionsOfTheCommandLine) {
  const std::pair<const char*, const char*> cases[] = {{"/S:12W4", "12W4"},
                                                       {"/S:12W4 more", "12W4"},
                                                       {"abc /S:12W4", " /S:"},
                                                       {"/s:12W4", "WWWW"},
                                                       {"", "WWWW"},
                                                       {"/S:1", "1"}};
  for (const auto& [line, rights] : cases) {
    ASSERT_TRUE(stockroom.Start(line));
    EXPECT_EQ(stockroom.App().AccessString, rights) << line;
  }
}

TEST_F(StartUpTest, TheStoredProfitCenterServesAsAPosition) {
  const struct {
    const char* stored;
    int number;
    const char* name;
  } cases[] = {{"2", 9, "Garage"},           {"1", 4, "Annex"},
               {"text", 0, "Stores"},        {"9", 0, "Stores"},
               {"99999999999", 0, "Stores"}, {"-1", 0, "Stores"}};
  for (const auto& [stored, number, name] : cases) {
    stockroom.Set("ProfitCenterNo", stored);
    ASSERT_TRUE(stockroom.Start()) << stored;
    EXPECT_EQ(stockroom.App().CurrentProfitCenter, number) << stored;
    EXPECT_EQ(stockroom.MainScreen().pcenter.Text(), name) << stored;
  }
  stockroom.Set("ProfitCenterNo", "3");  // equals the count: no such position
  ExpectBox(
      "An error has occurred locating KV_Inventory.mdb. (380-Invalid property value)\n"
      "KV Inventory must be shut down.");
  EXPECT_FALSE(stockroom.Start());
}

TEST_F(StartUpTest, LeavingTheProfitCenterTakesThePositionForTheNumber) {
  Main& main = stockroom.MainScreen();
  stockroom.user().Choose(main.pcenter, 2);
  EXPECT_EQ(stockroom.App().CurrentProfitCenter, 0) << "choosing alone changes nothing";
  stockroom.user().CloseWindow(main);
  EXPECT_TRUE(stockroom.desktop.ended);
  EXPECT_EQ(stockroom.Get("ProfitCenterNo"), "2");
}

TEST_F(StartUpTest, AnEmptyTableOfProfitCentersGetsGeneral) {
  stockroom.Execute("DELETE * FROM PCenter");
  ASSERT_TRUE(stockroom.Start());
  EXPECT_EQ(stockroom.Rows("SELECT name, pcenter FROM PCenter"), "General|0\n");
  EXPECT_EQ(stockroom.MainScreen().pcenter.Text(), "General");
}

TEST_F(StartUpTest, SettingsAreKeptFromOneStartToTheNext) {
  const std::pair<const char*, const char*> kept[] = {{"CompanyName", "Quay 7 \xC3\xA9"},
                                                      {"AcceptableVariance", "2.5"},
                                                      {"SecurityFlag", "0"},
                                                      {"UseOldStyleInventoryDetail", "1"},
                                                      {"TakeAwayAdjustments", "1"},
                                                      {"FontSize", "3"},
                                                      {"ColorFlag", "False"},
                                                      {"ProfitCenterNo", "0"},
                                                      {"CurrentInventoryCategory", "Belts"},
                                                      {"CurrentPsoVendor", "Nord Supply"},
                                                      {"SpreadsheetExePath", "/usr/bin/calc"},
                                                      {"VALUATION", "WEIGHTED"}};
  for (const auto& [key, value] : kept) stockroom.Set(key, value);
  EXPECT_EQ(stockroom.App().settings.AcceptableVariance, 2.5);
  EXPECT_FALSE(stockroom.App().UseColors);
  EXPECT_EQ(stockroom.App().settings.Valuation, ValuationMethod::Weighted);
  EXPECT_TRUE(stockroom.Exit());
  for (const auto& [key, value] : kept) EXPECT_EQ(stockroom.Get(key), value) << key;
  EXPECT_EQ(stockroom.Get("NetworkFlag"), "True");
}

TEST_F(StartUpTest, AMissingSuiteFileEndsTheProcess) {
  const std::string suite = stockroom.folder / "TARNWK.INI";
  const std::string message =
      "There is a problem with your config file. (TARNWK.INI). TarnwickManager must be shut down.";
  for (const char* content : {"", "[OTHER]\nDatabasePath=\n", "\x01\xFF\x00\x7F[[[\x80"}) {
    WriteFile(suite, content);
    ExpectBox(message);
    EXPECT_FALSE(stockroom.Start());
    EXPECT_EQ(ReadFile(suite), content) << "the suite's file is never written";
  }
}

TEST_F(StartUpTest, AnInactiveSettingsFileIsReplacedByTheDefaults) {
  const std::string own = stockroom.folder / "KVI.INI";
  for (const char* content : {"[KestvarInventory]\nSectionActive=False\nCompanyName=Old\n",
                              "\xFF\xFE\x01 noise \x02", ""}) {
    WriteFile(own, content);
    ASSERT_TRUE(stockroom.Start()) << content;
    EXPECT_EQ(stockroom.App().settings.CompanyName, "ABC Facility");
    EXPECT_EQ(stockroom.Get("SecurityFlag"), "False");
    EXPECT_EQ(stockroom.Get("SpreadsheetExePath"), "C:\\Office\\Excel.exe");
    EXPECT_EQ(stockroom.Get("DatabasePath"), stockroom.folder.Path().string());
    EXPECT_EQ(stockroom.Get("VALUATION"), "(none)") << "a new file names no method";
    EXPECT_EQ(stockroom.Get("UseOldStyleInventoryDetail"), "(none)");
  }
  EXPECT_EQ(ReadFile(stockroom.folder / "KVI.INI.old"), "\xFF\xFE\x01 noise \x02")
      << "a foreign file is set aside, not lost";

  WriteFile(own, "somebody's");
  const std::string cannotTakeOne = stockroom.folder / "KVI.INI.old2";
  std::filesystem::create_directory(cannotTakeOne);
  ASSERT_TRUE(stockroom.Start());
  EXPECT_EQ(ReadFile(stockroom.folder / "KVI.INI.old3"), "somebody's");
}

TEST_F(StartUpTest, ValuesOfTheFileAreCutAt127CharactersAndUnknownMethodsChangeNothing) {
  stockroom.Set("CompanyName", std::string(200, 'x'));
  stockroom.Set("VALUATION", "lastprice");
  stockroom.Set("SectionActive", "tRuE");
  EXPECT_EQ(stockroom.App().settings.CompanyName, std::string(127, 'x'));
  EXPECT_EQ(stockroom.App().settings.Valuation, ValuationMethod::FIFO) << "the design's choice";
}

TEST_F(StartUpTest, AMissingOrBrokenDatabaseEndsTheProcessAndStaysAsItIs) {
  const std::string file = stockroom.DatabaseFile();
  const auto startsWithBox = [&](const std::string& content, const std::string& box) {
    if (!content.empty()) WriteFile(file, content);
    ExpectBox(box);
    EXPECT_FALSE(stockroom.Start());
    EXPECT_EQ(ReadFile(file), content) << "the file stays as it is";
  };
  const std::string shutDown = ")\nKV Inventory must be shut down.";
  const std::string locating = "An error has occurred locating KV_Inventory.mdb. (3343-";
  startsWithBox("no database at all",
                locating + DescriptionOf(3343) + " ('" + file + "')" + shutDown);
  std::filesystem::remove(file);
  startsWithBox("", "There is a problem locating KV_Inventory.mdb.");
}

TEST_F(StartUpTest, TheDatabaseIsFoundInTheSuitesFolder) {
  std::filesystem::create_directory(stockroom.folder.Path() / "share");
  std::filesystem::rename(stockroom.DatabaseFile(),
                          stockroom.folder.Path() / "share" / "KV_Inventory.mdb");
  WriteFile(stockroom.folder / "TARNWK.INI",
            "[TARNWK]\nDatabasePath=" + (stockroom.folder / "share") + "\n");
  EXPECT_TRUE(stockroom.Start());
}

TEST_F(StartUpTest, TilesThatNeedPartsAskForThem) {
  Main& main = stockroom.MainScreen();
  ExpectBox("No items in the system.  Click on the '+' icon to add a new item.");
  Click(main.Label2);
  ExpectBox("No items in the system.  Click on the '+' icon to add a new item.");
  Click(main.m_f_print);
}

// A compiled help file first, then the manual here, then the installed one.
TEST_F(StartUpTest, AMissingManualIsSaid) {
  stockroom.desktop.helpOpens = false;
  ExpectBox(
      "There is a problem locating the help file OR you have not properly setup your 'browser'.  "
      "Go to 'Utilities' from the main screen, click on 'KV Settings' and make sure your browser "
      "is properly selected. ");
  Click(stockroom.MainScreen().m_help_sm);
  const std::string installed = "/usr/share/doc/kestvar-inventory/manual/";
  EXPECT_EQ(
      stockroom.desktop.helpOpened,
      (std::vector<std::string>{stockroom.folder / "manual.chm",
                                stockroom.folder / "manual/index.html", installed + "index.html"}));
  stockroom.desktop.helpOpens = true;
  OpenHelpOn(stockroom.App(), "KVI_Find");
  EXPECT_EQ(stockroom.desktop.helpOpened.back(), stockroom.folder / "manual/kvi_find.html");
}

TEST_F(StartUpTest, ASettingsFileThatCannotBeWrittenEndsTheProcess) {
  ASSERT_TRUE(stockroom.Start());
  std::filesystem::remove(stockroom.folder / "KVI.INI");
  std::filesystem::create_directory(stockroom.folder / "KVI.INI");
  ExpectBox("Invalid KVI.INI file. KVI must close down.");
  EXPECT_TRUE(stockroom.Exit());
}

// Each scheme gives the screen its background, and its colours to what is black or white by design.
TEST_F(StartUpTest, TheSuitesColourSchemePaintsWhatIsBlackOrWhite) {
  const struct {
    const char* scheme;
    int background, foreground, highlight;
  } cases[] = {{"1", 8, 15, 15}, {"2", 7, 15, 15}, {"3", 8, 0, 0},
               {"4", 7, 0, 0},   {"5", 4, 15, 15}, {"6", 1, 15, 15},
               {"7", 5, 15, 15}, {"", 0, 15, 15},  {"8", 0, 15, 15}};
  for (const auto& [scheme, background, foreground, highlight] : cases) {
    WriteFile(stockroom.folder / "TARNWK.INI",
              std::string("[TARNWK]\nDatabasePath=\nColorScheme=") + scheme + "\n");
    ASSERT_TRUE(stockroom.Start());
    Main& main = stockroom.MainScreen();
    EXPECT_EQ(main.Label1.BackColor, background) << scheme;
    EXPECT_EQ(main.banner.Label21.ForeColor, foreground) << scheme;
    EXPECT_EQ(main.lblVersion.ForeColor, kToolkitColor) << scheme;
    EXPECT_EQ(stockroom.App().HighlightColor, highlight) << scheme;
    stockroom.user().MoveOver(main.Label1);
    stockroom.user().MoveOver(main);
    EXPECT_EQ(main.Label1.ForeColor, highlight) << scheme;
  }
}

}  // namespace
}  // namespace kvi::test
