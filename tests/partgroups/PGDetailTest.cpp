#include "base/RunTimeError.h"
#include "grids/KVI_Find.h"
#include "partgroups/GroupStory.h"

namespace kvi::test {
namespace {

class PGDetailTest : public GroupStory {};

TEST_F(PGDetailTest, OpensWithWhatIsStoredLessTheQuantities) {
  Build(2, [&] {
    EXPECT_EQ(Builder().Caption(), "Part Group Detail");
    EXPECT_EQ(Builder().rec_id.Text() + "," + Builder().rname.Text() + "," +
                  Builder().rec_cat.Text() + "," + Builder().notes.Text(),
              "12,Pump set,Kits,twice a year");
    EXPECT_EQ(Builder().rec_cat.Items(), (std::vector<std::string>{"Air", "Kits"}));
    EXPECT_EQ(Shown(), "10|Belt|foot||2.0000||wide|left\n55|Gone|each||0.1235|||\n");
    EXPECT_EQ(Lines().MaxRows(), 500);
    EXPECT_EQ(GridText(Parts()),
              "10|Belt|wide|foot|2.0000|Bin 2|Belts\n9|Ring||each||Bin 3|Seals\n"
              "100|Seal|thin|each|0.2500|Bin 1|Seals\n");
    EXPECT_FALSE(Builder().LineChanged());
    EXPECT_FALSE(stockroom.user().TypeIntoCell(Lines(), 1, KVI_PGDetail::kCostColumn, "1"));
    // So a save at once takes every quantity away.
    Click(Builder().save);
  });
  EXPECT_EQ(
      Stored("12"),
      "10|0|Belt|foot|0|2|wide|left\n55|0|Gone|each|0|0.1235||\n99|4|Far|Null|1|Null|Null|Null\n");
}

TEST_F(PGDetailTest, AClerkBuildsAGroupAndSeesTheSharesAtOnce) {
  Build(0, [&] {
    EXPECT_EQ(Builder().Caption(), "Part Group Detail - Add New Part Group");
    Type(Builder().rec_id, " 90 ");
    Type(Builder().rname, "Valve kit");
    Type(Builder().rec_cat, std::string(60, 'c'));
    AddPart(1);
    stockroom.user().Choose(Builder().CatCombo, Builder().CatCombo.IndexOf("Seals"));
    stockroom.user().GoToCell(Parts(), 1, 1);
    EXPECT_TRUE(stockroom.user().PressKey(Parts(), "s"));
    Click(Builder().AddToRecipe);
    TypeQuantity(1, "3");
    TypeQuantity(2, "8");
    EXPECT_FALSE(stockroom.user().TypeIntoCell(Lines(), 2, KVI_PGDetail::kQuantityColumn, "few"));
    EXPECT_EQ(Shown(),
              "10|Belt|foot|3|2.0000|75.00|wide|\n100|Seal|each|8|0.2500|25.00|"
              "thin|\n");
    TypeQuantity(1, "");
    TypeQuantity(2, "0");
    EXPECT_EQ(Lines().Text(1, KVI_PGDetail::kPercentColumn), "0.00");
    EXPECT_EQ(Lines().Text(2, KVI_PGDetail::kPercentColumn), "100.00") << "no total, no new share";
    TypeQuantity(1, "3");
    Click(Builder().save);
    EXPECT_EQ(Builder().Caption(), "Part Group Detail");
    Type(Builder().notes, "second save");
    Click(Builder().save);
  });
  EXPECT_EQ(Stored("90"), "10|0|Belt|foot|3|2|wide|\n100|0|Seal|each|0|0.25|thin|\n");
  EXPECT_EQ(Groups(),
            "12|0|Pump set|Kits|twice a year|8.12345\n40|4|Far kit|Kits|Null|1\n"
            "7|0|Air kit|Air|Null|Null\n90|0|Valve kit|" +
                std::string(50, 'c') + "|second save|0\n");
}

TEST_F(PGDetailTest, SelectedPartsAreAddedAndSelectedLinesLeaveAGap) {
  Build(0, [&] {
    stockroom.user().Select(Parts(), {{1, 1, 1, 7}, {2, 1, 3, 7}});
    Click(Builder().AddToRecipe);
    EXPECT_EQ(GridText(Lines(), 1, 1).substr(0, 10), "10\n9\n100\n\n");
    EXPECT_TRUE(Parts().SelectedBlocks().empty());
    const std::string question =
        "Are you sure you want to remove the current selected row from the part group's inventory "
        "list?";
    ExpectBox(question, Answer::No);
    Click(Builder().Command2);
    stockroom.user().Select(Lines(), {{1, 1, 2, 1}});
    ExpectBox(question, Answer::Yes);
    Click(Builder().Command2);
    EXPECT_EQ(GridText(Lines(), 1, 1).substr(0, 6), "\n\n100\n");
    // Without a look at what stands there: the third goes over the line behind the gap.
    stockroom.user().Select(Parts(), {{1, 1, 3, 1}});
    Click(Builder().AddToRecipe);
    stockroom.user().GoToCell(Lines(), 2, 1);
    ExpectBox(question, Answer::Yes);
    Click(Builder().Command2);
    EXPECT_EQ(GridText(Lines(), 1, 1).substr(0, 8), "10\n100\n\n");
    for (int added = 0; added < 600; ++added) AddPart(1);
    EXPECT_EQ(Lines().Text(602, 1), "10");
    EXPECT_GT(Lines().MaxRows(), 602);
    Type(Builder().rec_id, "91");
    Click(Builder().save);
  });
  EXPECT_EQ(stockroom.Rows("SELECT count(*) as n FROM Inv_Recipe WHERE rec_id = '91'"), "602\n");
}

// A group that could not be saved is still the new one it was, and nobody else's.
TEST_F(PGDetailTest, ANewGroupThatCannotBeSavedStaysNew) {
  Build(0, [&] {
    AddPart(1);
    ExpectBox(kSaveFirst);
    ExpectBox("You must enter an part group number before saving.", Answer::Ok,
              "Save changes to part groups");
    Click(Builder().exit_lab);
    for (const char* taken : {"7", "40"}) {
      Type(Builder().rec_id, taken);
      ExpectBox("Duplicate # found.  Please enter a different #.\nChanges NOT saved.", Answer::Ok,
                "Save Changes");
      Click(Builder().save);
    }
    Type(Builder().rec_id, "O'Ring");
    ExpectBox(
        "An error has occurred saving data.3075 Syntax error (missing operator, or characters "
        "behind the end) in query expression 'SELECT * FROM Inv_Recipe where Rec_ID = 'O'Ring' "
        "ORDER BY inv_id'.",
        Answer::Ok, "KV Inventory Save Changes");
    Click(Builder().save);
    EXPECT_TRUE(Builder().Caption().ends_with("Add New Part Group"));
    Type(Builder().rec_id, "92");
    Click(Builder().save);
  });
  EXPECT_EQ(stockroom.Rows("SELECT rec_id, name FROM R_Master ORDER BY rec_id"),
            "12|Pump set\n40|Far kit\n7|Air kit\n92|\n");
}

TEST_F(PGDetailTest, AFailedSaveLosesNoLineAndAsksNothing) {
  jet::Database other = OtherDesk();
  jet::Recordset theirs = other.OpenRecordset("SELECT * FROM R_Master WHERE rec_id = '40'");
  const std::string before = Stored("12");
  Build(2, [&] {
    TypeQuantity(1, "5");
    theirs.Edit();
    ExpectBox("An error has occurred saving data.3260 " + DescriptionOf(3260), Answer::Ok,
              "KV Inventory Save Changes");
    Click(Builder().save);
    theirs.CancelUpdate();
    // A line that its field cannot hold, behind those that it can.
    Lines().SetText(2, KVI_PGDetail::kNameColumn, std::string(300, 'n'));
    Type(Builder().rec_id, "13");
    ExpectBox("An error has occurred saving data.3163 " + DescriptionOf(3163) + " (iname)",
              Answer::Ok, "KV Inventory Save Changes");
    Click(Builder().save);
    EXPECT_EQ(Stored("12"), before);
    EXPECT_EQ(Stored("13"), "");
    Lines().SetText(2, KVI_PGDetail::kNameColumn, "short");
    // What another desk wrote meanwhile is written over, its lines too.
    other.Execute("UPDATE R_Master SET name = 'theirs', cost = 5 WHERE rec_id = '12'");
    other.Execute("DELETE * FROM Inv_Recipe WHERE rec_id = '12' and pcenter = 0");
    Click(Builder().save);
    Click(Builder().save);
  });
  EXPECT_EQ(Stored("13"), "10|0|Belt|foot|5|2|wide|left\n55|0|short|each|0|0.1235||\n");
  EXPECT_EQ(stockroom.Rows("SELECT name, cost FROM R_Master WHERE rec_id = '13'"), "Pump set|5\n");
}

TEST_F(PGDetailTest, AGroupThatIsGoneIsNotShownNorSaved) {
  jet::Database other = OtherDesk();
  const std::string gone = std::to_string(3167) + " " + DescriptionOf(3167);
  InList([&] {
    InBuilder(2, [&] {
      other.Execute("DELETE * FROM R_Master WHERE rec_id = '12'");
      TypeQuantity(1, "5");
      ExpectBox("An error has occurred saving data." + gone, Answer::Ok,
                "KV Inventory Save Changes");
      Click(Builder().save);
      EXPECT_EQ(stockroom.Rows("SELECT count(*) as n FROM Inv_Recipe WHERE qty > 3"), "1\n");
      // It can still be saved, as a new one.
      Click(Builder().save);
      Click(Builder().exit_lab);
    });
    other.Execute("DELETE * FROM R_Master WHERE rec_id = '12'");
    ExpectBox(gone);
    InBuilder(2, [&] {
      EXPECT_EQ(Builder().rec_id.Text() + "," + Builder().rname.Text(), "12,");
      EXPECT_EQ(Shown(), "");
      ExpectBox("Part Group 12 could not be loaded.\n\nChanges NOT Saved");
      Click(Builder().save);
      Click(Builder().exit_lab);
    });
  });
  EXPECT_EQ(Stored("12"), "10|0|Belt|foot|5|2|wide|left\n55|0|Gone|each|0|0.1235||\n");
}

TEST_F(PGDetailTest, WithoutTheRightASaveReturnsToWhatIsStored) {
  ASSERT_TRUE(stockroom.Start("/S:WWRW"));
  InList([&] {
    for (ActionLabel* action : {&List().new_lab, &List().remove, &List().duplicate}) {
      ExpectBox(kReadOnly);
      Click(*action);
    }
    InBuilder(2, [&] {
      Type(Builder().rname, "Mine");
      AddPart(3);
      ExpectBox(kReadOnly + std::string("\n\nChanges NOT Saved"));
      Click(Builder().save);
      EXPECT_EQ(Builder().rname.Text(), "Pump set");
      EXPECT_EQ(Lines().Text(3, 1), "");
      Click(Builder().exit_lab);
    });
  });
}

TEST_F(PGDetailTest, TheLeavingAsksOnceAndHides) {
  InList([&] {
    InBuilder(2, [&] {
      Type(Builder().rname, "Lost");
      ExpectBox(kSaveFirst, Answer::Cancel);
      stockroom.user().CloseWindow(Builder());
    });
    InBuilder(2, [&] {
      EXPECT_EQ(Builder().rname.Text(), "Pump set");
      Type(Builder().rname, "Kept");
      ExpectBox(kSaveFirst);
      Click(Builder().m_f_exit);
    });
    EXPECT_EQ(List().Spread1.Text(2, 1), "Pump set") << "not before a refresh";
    Click(List().refresh_lab);
    EXPECT_EQ(List().Spread1.Text(2, 1), "Kept");
  });
}

TEST_F(PGDetailTest, SortFilterAndFindWorkOnTheListBelow) {
  Build(2, [&] {
    Type(Builder().rname, "typed");
    const struct {
      MenuItem& sort;
      const char *numbers, *prompt, *wanted, *found;
    } cases[] = {
        {Builder().m_s_id, "10\n100\n9\n", "What 'ID #' would you like to find?", "9", "9"},
        {Builder().m_s_cat, "10\n9\n100\n", "What 'category' would you like to find?", "SE", "9"},
        {Builder().m_s_name, "10\n9\n100\n", "What 'name' would you like to find?", "S", "100"}};
    for (const auto& c : cases) {
      Click(c.sort);
      EXPECT_EQ(GridText(Parts(), 1, 1), c.numbers);
      stockroom.desktop.ExpectScreen("KVI_Find", [&] {
        auto& finder = stockroom.App().Get<KVI_Find>();
        EXPECT_EQ(finder.Label1.Caption(), c.prompt);
        EXPECT_FALSE(finder.SortLabel.Visible);
        Type(finder.Text1, c.wanted);
        Click(finder.Label12);
      });
      Click(Builder().find_lab);
      EXPECT_EQ(Parts().Text(Parts().ActiveRow(), 1), c.found);
      EXPECT_EQ(Builder().rname.Text(), "typed");
    }
    EXPECT_FALSE(Builder().m_s_id.Checked || Builder().m_s_cat.Checked);
    stockroom.desktop.ExpectScreen("KVI_Find", [&] {
      auto& finder = stockroom.App().Get<KVI_Find>();
      stockroom.user().Tick(finder.searchCB);
      Type(finder.Text1, "EAL");
      ExpectBox("No more found - starting back at the top.");
      Click(finder.Label12);
    });
    Click(Builder().find_lab);
    EXPECT_TRUE(Lines().Visible);
    ExpectBox("There are no items to display for the selected category.");
    stockroom.user().Choose(Builder().CatCombo, Builder().CatCombo.IndexOf("Empty"));
    Click(Builder().AddToRecipe);
    EXPECT_EQ(Lines().Text(3, 1), "") << "no part, no line";
    Click(Builder().save);
  });
}

TEST_F(PGDetailTest, TheReportPrintsTheGridAsTyped) {
  Build(2, [&] {
    TypeQuantity(1, "3");
    Click(Builder().print_lab);
    const auto& document = *stockroom.desktop.documents.back();
    EXPECT_TRUE(document.ended);
    EXPECT_EQ(document.Page(1),
              "0.30 0.30 bold 12 | Harbour Works\n0.30 0.50 bold 10 | Menu Cost/Analysis Report\n"
              "0.30 0.67 8 | 3/9/2026\n0.30 0.80 8 | Pump set\n0.30 1.10 8 | Part Group:\n"
              "0.30 1.23 bold 8 | Part #\n0.90 1.23 bold 8 | Description\n"
              "3.10 1.23 bold 8 | How Used\n4.10 1.23 bold 8 | Quantity\n"
              "4.70 1.23 bold 8 | Cost - Base\n5.60 1.23 bold 8 | Extension\n"
              "6.50 1.23 bold 8 | % of Total Cost\n0.30 1.47 8 | 10\n0.90 1.47 8 | Belt\n"
              "3.10 1.47 8 | foot\n4.33 1.47 8 | 3\n4.80 1.47 8 | 2.0000\n5.60 1.47 8 | 6.0000\n"
              "6.60 1.47 8 | 100.00\n0.30 1.63 8 | 55\n0.90 1.63 8 | Gone\n3.10 1.63 8 | each\n"
              "4.80 1.63 8 | 0.1235\n5.60 1.63 8 | 0.0000\n6.73 1.63 8 | 0.00\n");
    EXPECT_EQ(document.Shapes(1), "line 0.30 1.42 7.50 1.42\n");
    for (int row = 3; row < 90; ++row) AddPart(1);
    Lines().SetText(90, 1, "LONG-PART-NUMBER");
    Click(Builder().m_f_print);
    const auto& pages = *stockroom.desktop.documents.back();
    EXPECT_EQ(pages.PageCount(), 2);
    EXPECT_TRUE(pages.Page(2).starts_with("0.30 0.30 bold 8 | Part #\n")) << pages.Page(2);
    EXPECT_NE(pages.Page(2).find("| LONG-\n"), std::string::npos);
    EXPECT_NE(pages.Page(2).find("| NUMBER"), std::string::npos) << "in the next line";
    ExpectDraftPrint();
    Click(Builder().sprint_lab);
    EXPECT_EQ(stockroom.desktop.screensPrinted.size(), 1U);
    ExpectBox(kSaveFirst, Answer::Cancel);
  });
}

TEST_F(PGDetailTest, WhatNoControlCallsIsThereAllTheSame) {
  Build(2, [&] {
    Builder().ListGroups();
    EXPECT_EQ(Builder().Label2.Caption() + "\n" + GridText(Parts()),
              "Available Part Groups\nAir kit|Air|7||\nPump set|Kits|12|8.1235|twice a year\n");
    EXPECT_FALSE(Builder().CatCombo.Visible);
    stockroom.user().GoToCell(Parts(), 2, 1);
    Builder().add_rec_to_rec_wi();
    Builder().AddBareGroup();
    EXPECT_EQ(Shown().substr(Shown().find("12 (")),
              "12 (part group #)|Pump set|Units|0|8.1235||RECIPE IN RECIPE|\n"
              "12|Pump set|Units|0|8.1235||RECIPE IN RECIPE|\n");
    Builder().ListParts();
    EXPECT_EQ(Builder().Label2.Caption(), "Available General Inventory");
    stockroom.user().GoToCell(Parts(), 3, 1);
    for (const auto& [answer, row] : {std::pair(Answer::Yes, 1), std::pair(Answer::No, 5)}) {
      stockroom.user().GoToCell(Lines(), 1, 1);
      ExpectBox(
          "You are on a row which currently has an item.  Would you like to overwrite this item?",
          answer, "Part Group Builder");
      Builder().add_to_rec_wi();
      EXPECT_EQ(Lines().Text(row, 1), "100");
      EXPECT_EQ(Lines().Text(Lines().ActiveRow(), 1), "") << "the next empty line";
    }
    Click(Builder().save);
  });
}

}  // namespace
}  // namespace kvi::test
