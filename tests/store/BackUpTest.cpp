#include "store/BackUp.h"

#include <array>
#include <filesystem>
#include <set>
#include <thread>

#include "base/RunTimeError.h"
#include "store/BackUpFiles.h"
#include "support/Story.h"
#include "support/TableText.h"
#include "utilities/KVI_Backups.h"
#include "utilities/KVI_Utilities.h"

namespace kvi::test {
namespace {

namespace fs = std::filesystem;

class BackUpTest : public StoryTest {
 protected:
  BackUpTest() {
    stockroom.Fill("I_Master",
                   "inv_id | pcenter | name | active | qty_on_hand\n 1 | 4 | Bolt | YES | 2");
    fs::remove(stockroom.DailyCopy());
  }
  // The names of all that lies beside the database, a line each.
  std::string Names() {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(stockroom.folder / "backups"))
      names.insert(entry.path().filename().string());
    std::string text;
    for (const std::string& name : names) text += name + "\n";
    return text;
  }
  static std::string PartsIn(const std::string& path) {
    jet::Database database = jet::Database::Open(path, false);
    jet::Recordset parts = database.OpenRecordset("SELECT * FROM I_Master ORDER BY inv_id");
    return RowsText(parts, "inv_id qty_on_hand");
  }
  // Opens the list by the menu of Main.
  void InList(const Acts& acts) {
    stockroom.desktop.ExpectScreen("KVI_Backups", [&] {
      acts();
      Click(List().exit_lab);
    });
    Click(stockroom.MainScreen().m_f_restore);
    stockroom.desktop.AllCame();
  }
  KVI_Backups& List() { return The<KVI_Backups>(); }
  void ExpectQuestion(const std::string& what, Answer answer) {
    ExpectBox("The whole database, of all profit centers, will be as in " + what +
                  ".\nWhat was entered since then is not in it.\n\nThe database as it stands is "
                  "copied first.  Do you want to restore this copy?",
              answer, "Restore");
  }
  void BackUpNow(const std::string& reason) {
    stockroom.desktop.ExpectInput("What is the copy for?  The list of copies shows it.", reason,
                                  "Back Up");
    ExpectBox("The database was copied to \"" +
                  (stockroom.folder / ("backups/2026-03-09 140506 " + reason + ".mdb")) + "\".",
              Answer::Ok, "Back Up");
    Click(stockroom.MainScreen().m_f_backup);
  }
};

TEST_F(BackUpTest, TheFirstStartOfADayCopiesAndTwoDesksMakeOneCopy) {
  stockroom.App();
  EXPECT_EQ(Names(), "2026-03-09 daily.mdb\n");
  EXPECT_EQ(PartsIn(stockroom.DailyCopy()), "1|2\n");
  stockroom.Execute("UPDATE I_Master SET qty_on_hand = 3");
  EXPECT_TRUE(stockroom.Start());
  EXPECT_EQ(PartsIn(stockroom.DailyCopy()), "1|2\n") << "the first of the day stays";
  fs::remove(stockroom.DailyCopy());
  std::array<std::thread, 4> desks;
  for (std::thread& desk : desks)
    desk = std::thread([&] {
      jet::Database database = OtherDesk();
      MakeDailyBackUp(database, {2026, 3, 9});
    });
  for (std::thread& desk : desks) desk.join();
  EXPECT_EQ(Names(), "2026-03-09 daily.mdb\n");
  EXPECT_EQ(PartsIn(stockroom.DailyCopy()), "1|3\n");
}

TEST_F(BackUpTest, OldCopiesOfTheDayGoAndNothingElse) {
  const char* stays[] = {"2025-04-02 daily.mdb",  // the first of its month, eleven months ago
                         "2026-02-03 daily.mdb",
                         "2026-02-24 daily.mdb",
                         "2026-02-05 090000 by kvi-backup.mdb",
                         "2024-01-01 101010 before removing a vendor.mdb",
                         "2024-01-01 101010 daily.mdb",
                         "2024-01-01.mdb",
                         "2024-13-01 daily.mdb",
                         "copy of 2024-01-01 daily.mdb",
                         "2024-01-01 daily.mdb.bak",
                         "2024-01-01 daily.mdb.1234.new",
                         "2027-01-01 daily.mdb"};
  const char* goes[] = {"2025-03-31 daily.mdb",
                        "2025-04-03 daily.mdb",
                        "2026-02-04 daily.mdb",
                        "2026-02-23 daily.mdb",
                        "2026-02-06 090000 by kvi-backup.mdb",
                        "2024-01-02 daily.mdb.1234.new"};
  const fs::path folder = stockroom.folder / "backups";
  std::set<std::string> expected;
  for (const char* name : stays) {
    WriteFile((folder / name).string(), "x");
    expected.insert(name);
  }
  for (const char* name : goes) WriteFile((folder / name).string(), "x");
  fs::last_write_time(folder / goes[5], fs::file_time_type::clock::now() - std::chrono::hours(30));
  fs::create_symlink(stockroom.DatabaseFile(), folder / "2024-01-03 daily.mdb");
  RemoveOldBackUps(folder, {2026, 3, 9});
  std::string text;
  expected.insert("2024-01-03 daily.mdb");
  for (const std::string& name : expected) text += name + "\n";
  EXPECT_EQ(Names(), text);
}

TEST_F(BackUpTest, WithoutACopyTheStartGoesOnAndAnActIsAskedAbout) {
  const std::string folder = stockroom.folder / "backups";
  fs::remove_all(folder);
  WriteFile(folder, "x");
  const std::string reason = "75 " + folder + ": Not a directory";
  ExpectBox("The copy of the day could not be made in \"" + folder + "\".\n\n" + reason);
  ASSERT_TRUE(stockroom.Start());
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    ExpectBox("The database could not be copied into \"" + folder + "\" before trying.\n\n" +
                  reason + "\n\nDo you want to go on without a copy?",
              answer);
    EXPECT_EQ(BackUpBefore(stockroom.App(), "trying"), answer == Answer::Yes);
  }
}

TEST_F(BackUpTest, ACopyIsRestoredForAllDesksAndWhatStoodIsCopiedFirst) {
  stockroom.Set("ProfitCenterNo", "1");
  stockroom.App();
  BackUpNow("stock-taking");
  stockroom.Execute("UPDATE I_Master SET qty_on_hand = 9, inv_id = '7'");
  stockroom.Execute("DELETE * FROM PCenter WHERE pcenter = 9");
  stockroom.Fill("DD_category", "Description\n Later");
  stockroom.App().Get<KVI_Utilities>();
  jet::Database other = OtherDesk();
  jet::Recordset theirs = other.OpenRecordset("SELECT * FROM I_Master");
  EXPECT_EQ(theirs.Text("inv_id"), "7");
  InList([&] {
    EXPECT_EQ(GridText(List().Spread1, 1, 3),
              "03/09/2026 02:05 PM|stock-taking|1\n03/09/2026|daily|1\n");
    const std::string what = "the copy of 03/09/2026 02:05 PM (stock-taking)";
    ExpectQuestion(what, Answer::No);
    Click(List().restore);
    EXPECT_EQ(theirs.Text("inv_id"), "7");
    ExpectQuestion(what, Answer::Yes);
    ExpectBox("The database is as in " + what + ".", Answer::Ok, "Restore");
    Click(List().restore);
    EXPECT_EQ(List().Spread1.MaxRows(), 3);
  });
  EXPECT_EQ(stockroom.Rows("SELECT inv_id, qty_on_hand FROM I_Master"), "1|2\n");
  EXPECT_EQ(PartsIn(stockroom.CopyBefore("restoring a copy")), "7|9\n");
  EXPECT_EQ(stockroom.App().CurrentProfitCenter, 4);
  EXPECT_EQ(stockroom.App().ItemSet.Text("name"), "Bolt");
  EXPECT_EQ(stockroom.MainScreen().pcenter.Text(), "Annex");
  EXPECT_EQ(stockroom.MainScreen().pcenter.ListCount(), 3) << "the garage is back";
  EXPECT_THROW(theirs.Edit(), RunTimeError) << "their row is gone";
  EXPECT_EQ(PartsIn(stockroom.DatabaseFile()), "1|2\n");
}

TEST_F(BackUpTest, WhatIsNoCopyOfOursIsRefusedAndChangesNothing) {
  const std::string foreign = stockroom.folder / "foreign.mdb",
                    text = stockroom.folder / "text.mdb",
                    damaged = stockroom.folder / "damaged.mdb";
  stockroom.App();
  jet::Database::Create(foreign, {{"I_Master", {{"inv_id"}}, {}}});
  WriteFile(text, "no database");
  std::string bytes = ReadFile(stockroom.DailyCopy());
  bytes.replace(bytes.size() / 2, 20000, std::string(20000, 'x'));
  WriteFile(damaged, bytes);
  const std::string before = ReadFile(stockroom.DatabaseFile());
  const auto expectRefused = [&](const std::string& file, const std::string& why) {
    stockroom.desktop.ExpectFile("Select the copy to restore", file);
    ExpectQuestion("\"" + file + "\"", Answer::Yes);
    ExpectBox("The copy could not be restored.  Nothing was changed.\n\n" + why);
    Click(List().browse);
    stockroom.desktop.AllCame();
  };
  InList([&] {
    expectRefused(foreign, "3343 '" + foreign +
                               "' is no database of this program: the table R_Master is missing.");
    expectRefused(text, "3343 Unrecognized database format. ('" + text + "')");
    expectRefused(damaged, "3343 '" + damaged + "' is damaged.");
    expectRefused(stockroom.DatabaseFile(),
                  "3045 '" + stockroom.DatabaseFile() + "' is the open database itself.");
    stockroom.App().AccessString = "WWRW";
    ExpectBox("Full Access to Utilities required for this option.\n\nChanges NOT Saved");
    Click(List().restore);
  });
  EXPECT_EQ(ReadFile(stockroom.DatabaseFile()), before);
}

}  // namespace
}  // namespace kvi::test
