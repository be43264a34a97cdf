#include <filesystem>

#include "support/Story.h"
#include "utilities/DailyTextFile.h"
#include "utilities/KVI_DeleteInventory.h"
#include "utilities/KVI_Utilities.h"

namespace kvi::test {
namespace {

const std::string kGoOn = "\n\nAre you sure you want to continue?";
constexpr const char* kZero =
    "This option will 0 (zero) out all quantities on hand and valuations.  Current costs will "
    "remain. \n\nAre you sure you want to continue?";

// Two parts of "Annex" (4), one of "Stores" (0), and one of the number that is Annex's position.
class TasksTest : public StoryTest {
 protected:
  TasksTest() {
    stockroom.Fill("I_Master",
                   "inv_id | pcenter | name | desc | active | qty_on_hand | cost_per | valuation\n"
                   " 1 | 4 | Bolt | hex | YES | 2 | 3 | 6\n 2 | 4 | O'Ring | NBR | no | 5 | 1 |\n"
                   " 3 | 0 | Nut | | YES | 1 | 1 | 1\n 4 | 1 | Pin | | NO | 1 | 1 | 1");
  }
  using Task = Button KVI_Utilities::*;
  void InAnnex(const Acts& acts) {
    stockroom.InUtilities([&](auto& screen) {
      Choose(screen.pcenter, "Annex");
      acts();
    });
  }
  // Presses it, and leaves the combo by that.
  void Press(Task task) {
    stockroom.user().Leave(The<KVI_Utilities>().pcenter);
    Click(The<KVI_Utilities>().*task);
    stockroom.desktop.AllCame();
  }
  std::string Parts(const std::string& fields) {
    return stockroom.Rows("SELECT inv_id, " + fields + " FROM I_Master ORDER BY inv_id");
  }
};

TEST_F(TasksTest, ASwitchChangesThePartsOfTheProfitCenterInSight) {
  const struct {
    Task task;
    const char *what, *field, *after;
  } cases[] = {{&KVI_Utilities::Command3, "'active'", "active", "1|YES\n2|YES\n3|YES\n4|NO\n"},
               {&KVI_Utilities::Command4, "'NOT-active'", "active", "1|NO\n2|NO\n3|YES\n4|NO\n"},
               {&KVI_Utilities::Command6, "'Corporate Inventory Item'", "CorpInventoryItem",
                "1|True\n2|True\n3|False\n4|False\n"},
               {&KVI_Utilities::Command7, "'NON-Corporate Inventory Item'", "CorpInventoryItem",
                "1|False\n2|False\n3|False\n4|False\n"}};
  InAnnex([&] {
    for (const auto& [task, what, field, after] : cases) {
      const std::string question =
          std::string("This option will make all inventory items ") + what + ". " + kGoOn;
      const auto answer = [&](Answer given) {
        const std::uint64_t before = stockroom.App().CurrentDatabase.ChangeCount();
        ExpectBox(question, given);
        if (given == Answer::Yes) ExpectBox("Process completed.");
        Press(task);
        return stockroom.App().CurrentDatabase.ChangeCount() != before;
      };
      EXPECT_FALSE(answer(Answer::No)) << what;
      EXPECT_TRUE(answer(Answer::Yes)) << what;
      EXPECT_EQ(Parts(field), after);
      EXPECT_FALSE(answer(Answer::Yes)) << what << ": nothing is left to do";
    }
    Choose(The<KVI_Utilities>().pcenter, "Garage");
    ExpectBox("This option will make all inventory items 'active'. " + kGoOn, Answer::Yes);
    ExpectBox("Process completed.");
    Press(&KVI_Utilities::Command3);
  });
}

TEST_F(TasksTest, ZeroingKeepsCostsAndOtherProfitCentersAndLeavesACopy) {
  InAnnex([&] {
    ExpectBox(kCostQuestion, Answer::Yes);  // leaves the set of parts on all of them
    Press(&KVI_Utilities::cmdUpdateRecipeCosts);
    ExpectBox(kZero, Answer::No);
    Press(&KVI_Utilities::ZeroBtn);
    EXPECT_FALSE(std::filesystem::exists(stockroom.CopyBefore("zeroing the inventory")));
    ExpectBox(kZero, Answer::Yes);
    ExpectBox("Valuations and quantities updated to 0.");
    Press(&KVI_Utilities::ZeroBtn);
  });
  EXPECT_EQ(Parts("qty_on_hand, valuation, cost_per"), "1|0|0|3\n2|0|0|1\n3|1|1|1\n4|1|1|1\n");
  EXPECT_TRUE(std::filesystem::exists(stockroom.CopyBefore("zeroing the inventory")));
}

TEST_F(TasksTest, WhoeverMayOnlyReadIsRefusedBeforeAnyQuestion) {
  ASSERT_TRUE(stockroom.Start("/S:WWRW"));
  constexpr const char* kRefusal =
      "Full Access to Utilities required for this option.\n\nChanges NOT Saved";
  InAnnex([&] {
    for (const Task task :
         {&KVI_Utilities::Command3, &KVI_Utilities::Command4, &KVI_Utilities::Command6,
          &KVI_Utilities::Command7, &KVI_Utilities::ZeroBtn, &KVI_Utilities::cmdUpdateAllValuations,
          &KVI_Utilities::cmdUpdateRecipeItems, &KVI_Utilities::cmdDeleteAllRecipes,
          &KVI_Utilities::cmdDeleteAllItems, &KVI_Utilities::cmdColWidth,
          &KVI_Utilities::remove_purchases}) {
      ExpectBox(kRefusal);
      Press(task);
    }
  });
  ExpectBox(kRefusal);
  Click(stockroom.MainScreen().m_f_new);
}

TEST_F(TasksTest, AnotherDesksLockIsAskedAboutAndNoEndsWithoutTheClosingBox) {
  const std::string question = "This option will make all inventory items 'NOT-active'. " + kGoOn;
  stockroom.App();
  jet::Database other = OtherDesk();
  jet::Recordset theirs = other.OpenRecordset("SELECT * FROM I_Master WHERE inv_id = '2'");
  InAnnex([&] {
    ExpectBox(question, Answer::Yes);
    stockroom.desktop.Meanwhile([&] { theirs.Edit(); });
    ExpectLock(Answer::No);
    Press(&KVI_Utilities::Command4);
    ExpectBox(question, Answer::Yes);
    ExpectLock(Answer::Yes);
    stockroom.desktop.Meanwhile([&] {
      theirs.Set("name", "theirs");
      theirs.Update();
    });
    ExpectBox("Process completed.");
    Press(&KVI_Utilities::Command4);
  });
  EXPECT_EQ(Parts("active, name"), "1|NO|Bolt\n2|NO|theirs\n3|YES|Nut\n4|NO|Pin\n");
}

TEST_F(TasksTest, PartLinesTakeTheNamesAndDescriptionsOfToday) {
  stockroom.Fill("Inv_Recipe",
                 "rec_id | inv_id | iname | desc\n G | '2 ' | Ring | NBR\n"
                 " G | 1 | Bolt | RECIPE IN RECIPE\n G | 9 | Gone | x\n H | 3 | Nut | old");
  const std::string question =
      "\n\nThis option will update all of your items to the latest names and descriptions. " +
      kGoOn;
  stockroom.InUtilities([&](auto&) {
    ExpectBox(question, Answer::No, "Part Group");
    ExpectBox("Part Group NOT updated.", Answer::Ok, "Part Group");
    Press(&KVI_Utilities::cmdUpdateRecipeItems);
    ExpectBox(question, Answer::Yes, "Part Group");
    ExpectBox("Part Group updated.", Answer::Ok, "Part Group");
    Press(&KVI_Utilities::cmdUpdateRecipeItems);
  });
  EXPECT_EQ(stockroom.Rows("SELECT iname, desc FROM Inv_Recipe"),
            "O'Ring|NBR\nBolt|RECIPE IN RECIPE\nGone|x\nNut|Null\n");
}

TEST_F(TasksTest, PartGroupsAndPurchasesGoAfterTwoWarningsAndACopy) {
  stockroom.Fill("R_Master", "rec_id | pcenter\n G | 4\n H | 1\n ' ' | 4");
  stockroom.Fill("Inv_Recipe", "rec_id | pcenter | inv_id\n G | 4 | 1\n H | 1 | 1\n ' ' | 4 | 1");
  stockroom.Fill("Hist_Purchases", "inv_id | pcenter\n 1 | 4\n 1 |");
  const std::string groups =
      "THIS WILL REMOVE ALL Part Groups!\n\nAre you sure you want to do this?";
  InAnnex([&] {
    ExpectBox(groups, Answer::Yes, "Utilities");
    ExpectBox("2nd WARNING!  " + groups, Answer::No, "Utilities");
    Press(&KVI_Utilities::cmdDeleteAllRecipes);
    ExpectBox(groups, Answer::Yes, "Utilities");
    ExpectBox("2nd WARNING!  " + groups, Answer::Yes, "Utilities");
    ExpectBox("Part Groups have been removed.");
    Press(&KVI_Utilities::cmdDeleteAllRecipes);
    ExpectBox("THIS WILL REMOVE ALL HISTORICAL PURCHASES\n\nAre you sure you wish to do this?",
              Answer::Yes, "Utilities");
    ExpectBox(
        "Second Warning.  You are about to permanently remove all previous purchase records.\n\n"
        "Continue?",
        Answer::Yes, "Utilties");
    ExpectBox("Purchases have been removed.", Answer::Ok, "Utilities");
    Press(&KVI_Utilities::remove_purchases);
  });
  EXPECT_EQ(stockroom.Rows("SELECT rec_id FROM R_Master ORDER BY rec_id"), " \nH\n");
  EXPECT_EQ(stockroom.Rows("SELECT rec_id FROM Inv_Recipe ORDER BY rec_id"), " \nH\n");
  EXPECT_EQ(stockroom.Rows("SELECT * FROM Hist_Purchases"), "");
  EXPECT_TRUE(std::filesystem::exists(stockroom.CopyBefore("removing all part groups")));
  EXPECT_TRUE(std::filesystem::exists(stockroom.CopyBefore("removing all purchases")));
}

TEST_F(TasksTest, InactivePartsOrAllOfAProfitCenterAreDeleted) {
  for (const char* table : {"PSO_Master", "PSO_Detail"})
    stockroom.Fill(table, "pso_id | pcenter\n 1 | 4\n 2 | 0");
  auto& screen = The<KVI_DeleteInventory>();
  const auto press = [&](ActionLabel& action, Answer answer) {
    InAnnex([&] {
      stockroom.desktop.ExpectScreen("KVI_DeleteInventory", [&] {
        ExpectBox("2nd WARNING!  THIS WILL REMOVE ITEMS!\n\nAre you sure you want to do this?",
                  answer, "Utilities");
        if (answer == Answer::Yes)
          ExpectBox("Inventory items have been removed.", Answer::Ok, "Utilities");
        Click(action);
        if (answer == Answer::No) Click(screen.exit_lab);
      });
      Press(&KVI_Utilities::cmdDeleteAllItems);
    });
    return Parts("name");
  };
  EXPECT_EQ(press(screen.dai, Answer::No), "1|Bolt\n2|O'Ring\n3|Nut\n4|Pin\n999999|Base Record\n");
  EXPECT_EQ(screen.affected.Caption(), "Annex: 2 items, 1 of them inactive.");
  EXPECT_EQ(press(screen.diio, Answer::Yes), "1|Bolt\n3|Nut\n4|Pin\n999999|Base Record\n");
  EXPECT_EQ(stockroom.Rows("SELECT pso_id FROM PSO_Detail"), "1\n2\n");
  EXPECT_EQ(press(screen.dai, Answer::Yes), "3|Nut\n4|Pin\n999999|Base Record\n");
  for (const char* table : {"PSO_Master", "PSO_Detail"})
    EXPECT_EQ(stockroom.Rows(std::string("SELECT pso_id FROM ") + table), "2\n") << table;
  EXPECT_EQ(stockroom.App().ItemSet.RecordCount(), 0)
      << "of the profit center, not the base record";
}

TEST_F(TasksTest, TheDailyFileHoldsEveryPartInQuotedRecords) {
  stockroom.Fill("I_Master", "inv_id | name | hu_qty\n 5 | '1/2\" Pipe ' | 0.5");
  const std::string day = stockroom.folder / "files/3926.txt";
  const std::string whole =
      "\"Kestvar Inventory\"\n\"3/9/2026 2:05:06 PM\"\n\"---------------------------------\"\n"
      "\"1\",\"Bolt\",\"1\"\n\"2\",\"O'Ring\",\"1\"\n\"3\",\"Nut\",\"1\"\n\"4\",\"Pin\",\"1\"\n"
      "\"5\",\"1/2\"\" Pipe\",\"0.5\"\n";
  const auto expectQuestion = [&](Answer answer) {
    ExpectBox("There is already a file for this day. Are you sure you want to replace it?", answer,
              "File Exists");
  };
  stockroom.InUtilities([&](auto&) {
    ExpectBox("53 File not found");
    Press(&KVI_Utilities::create_file);
    std::filesystem::create_directory(stockroom.folder / "files");
    WriteFile(stockroom.folder / "files/master.txt", "");
    ExpectBox("File Created.");
    Press(&KVI_Utilities::create_file);
    EXPECT_EQ(ReadFile(day), whole);
    WriteFile(day, "mine");
    std::filesystem::create_symlink("/dev/full", day + ".new");
    expectQuestion(Answer::Yes);
    ExpectBox("61 Disk full");
    Press(&KVI_Utilities::create_file);
    expectQuestion(Answer::No);
    Press(&KVI_Utilities::create_file);
    EXPECT_EQ(ReadFile(day), "mine");
  });
  EXPECT_EQ(DailyFileName({2026, 12, 25}), "122526.txt");
}

TEST_F(TasksTest, AWipeEmptiesTheDatabaseEndsTheProcessAndLeavesOneThatStarts) {
  const auto wipe = [&](Answer second, const Acts& then) {
    ExpectBox(
        "               C A U T I O N   !   !   !\n\n"
        "This utility deletes all the records in the current\n"
        "database. It is normally used to remove the sample\n"
        "data that is shipped with new purchases.\n\n"
        "It is recommended that you first back up the current\n"
        "database before proceeding (click NO and exit the \n"
        "program to do so).\n\n"
        "Do you want to delete all records in the current\n"
        "database right now?",
        Answer::Yes, "New Database");
    ExpectBox("Are you positive?", second, "New Database");
    then();
    Click(stockroom.MainScreen().m_f_new);
    return stockroom.desktop.ended;
  };
  stockroom.App();
  EXPECT_FALSE(wipe(Answer::No, [] {}));
  jet::Database other = OtherDesk();
  jet::Recordset theirs = other.OpenRecordset("SELECT * FROM I_Master");
  EXPECT_FALSE(wipe(Answer::Yes, [&] {
    stockroom.desktop.Meanwhile([&] { theirs.Edit(); });
    ExpectLock(Answer::No);
  }));
  other.Close();
  EXPECT_EQ(Parts("name"), "1|Bolt\n2|O'Ring\n3|Nut\n4|Pin\n");
  stockroom.Fill("Historical Inventory", "Inv_ID | pcenter\n 1 | 4");
  stockroom.Fill("DD_category", "Description\n Seals");
  stockroom.App().CurrentProfitCenter = 1;  // the count of profit centers that there will be
  EXPECT_TRUE(wipe(Answer::Yes, [&] {
    ExpectBox("A new database has been created. Please restart the program.");
  }));
  EXPECT_FALSE(stockroom.App().CurrentDatabase.IsOpen());
  EXPECT_EQ(stockroom.Get("ProfitCenterNo"), "0");
  EXPECT_TRUE(std::filesystem::exists(stockroom.CopyBefore("deleting all records")));
  for (const char* table : {"I_Master", "PCenter", "[Historical Inventory]", "DD_category"})
    EXPECT_EQ(stockroom.Rows(std::string("SELECT * FROM ") + table), "") << table;
  EXPECT_NE(stockroom.Rows("SELECT * FROM CW_Inventory"), "");
  ASSERT_TRUE(stockroom.Start());
  EXPECT_EQ(stockroom.MainScreen().pcenter.Text(), "General");
}

}  // namespace
}  // namespace kvi::test
