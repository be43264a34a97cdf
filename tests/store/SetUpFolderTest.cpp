#include "store/SetUpFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/RunTimeError.h"
#include "frame/INI_SUBS.h"
#include "support/TestStockroom.h"

namespace kvi {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> FilesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::recursive_directory_iterator(folder))
    if (!entry.is_directory()) names.push_back(fs::relative(entry.path(), folder).string());
  std::ranges::sort(names);
  return names;
}

class SetUpFolderTest : public testing::Test {
 protected:
  const std::vector<std::string> kAllFiles{"KVI.INI", "KV_Inventory.mdb", "TARNWK.INI",
                                           "files/master.txt"};
  test::TemporaryFolder temporary_;
  const fs::path folder_ = temporary_.Path() / "new" / "stockroom";
};

TEST_F(SetUpFolderTest, ProgramStartsInTheFolderAndKeepsItsSettings) {
  for (const SetUpFile& file : SetUpFolder(folder_, "/usr/bin/localc")) EXPECT_TRUE(file.Made);
  EXPECT_EQ(FilesIn(folder_), kAllFiles);

  test::ScriptedDesktop desktop;
  test::FixedClock clock;
  test::FixedChance chance;
  Application app({desktop, clock, chance, folder_.string(), ""});
  ReadSettings(app);
  // Were the file not valid, the defaults' own path would stand here.
  EXPECT_EQ(app.SpreadsheetPath, "/usr/bin/localc");
  EXPECT_EQ(app.settings.CompanyName, "ABC Facility");
  EXPECT_EQ(app.settings.FontSize, 2);
  EXPECT_TRUE(app.UseColors);
  EXPECT_EQ(app.DatabaseDirectory, "");
}

TEST_F(SetUpFolderTest, NothingThatStandsIsOverwritten) {
  fs::create_directories(folder_ / "files");
  for (const std::string& name : kAllFiles) test::WriteFile(folder_ / name, "mine: " + name);
  const auto fill = [](jet::Database&) { FAIL() << "nothing may be filled"; };
  for (const SetUpFile& file : SetUpFolder(folder_, "/usr/bin/localc", fill))
    EXPECT_FALSE(file.Made) << file.Path;
  EXPECT_EQ(FilesIn(folder_), kAllFiles);
  for (const std::string& name : kAllFiles)
    EXPECT_EQ(test::ReadFile(folder_ / name), "mine: " + name);
}

TEST_F(SetUpFolderTest, BrokenSetUpLeavesNothingHalfAndTheNextOneMendsIt) {
  const auto breakOff = [](jet::Database&) { throw RunTimeError(3183); };
  EXPECT_THROW(SetUpFolder(folder_, "", breakOff), RunTimeError);
  EXPECT_EQ(FilesIn(folder_), std::vector<std::string>{});

  // What a killed run leaves behind does not stand in the way.
  test::WriteFile(folder_ / "KV_Inventory.mdb.new", "half");
  SetUpFolder(folder_, "", [](jet::Database& database) {
    database.Execute("INSERT INTO PCenter (pcenter, name) VALUES (4, 'Annex')");
  });
  EXPECT_EQ(FilesIn(folder_), kAllFiles);
  auto database = jet::Database::Open(folder_ / "KV_Inventory.mdb", false);
  EXPECT_EQ(database.OpenRecordset("SELECT * FROM PCenter").Text("name"), "Annex");
}

TEST_F(SetUpFolderTest, FolderThatCannotBeIsRaisedAsAPathError) {
  test::WriteFile(temporary_ / "file", "");
  try {
    SetUpFolder(temporary_.Path() / "file" / "stockroom", "");
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number, 75);
    EXPECT_NE(error.Description.find("stockroom"), std::string::npos);
  }
}

TEST_F(SetUpFolderTest, FirstSpreadsheetProgramOfTheListIsFound) {
  const fs::path first = temporary_.Path() / "first", second = temporary_.Path() / "second";
  for (const fs::path& folder : {first, second}) fs::create_directory(folder);
  const std::string search = first.string() + ":relative:" + second.string();
  test::WriteFile(first / "localc", "not to be run");
  EXPECT_EQ(FindSpreadsheetProgram(search), "");
  const auto install = [](const fs::path& program) {
    test::WriteFile(program, "");
    fs::permissions(program, fs::perms::owner_all);
  };
  install(first / "gnumeric");
  EXPECT_EQ(FindSpreadsheetProgram(search), first / "gnumeric");
  install(second / "localc");
  EXPECT_EQ(FindSpreadsheetProgram(search), second / "localc");
}

}  // namespace
}  // namespace kvi
