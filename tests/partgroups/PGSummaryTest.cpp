#include "base/RunTimeError.h"
#include "partgroups/GroupStory.h"

namespace kvi::test {
namespace {

class PGSummaryTest : public GroupStory {
 protected:
  Spread& Grid() { return List().Spread1; }
  std::string Numbers() { return GridText(Grid(), 3, 3); }
  void ExpectRemoval(Answer answer) {
    ExpectBox("Are you sure you want to remove this part group item?", answer,
              "Part Group - Remove");
  }
  // `refused` is the box behind the question.
  void Duplicate(int row, const std::string& refused = "", const std::string& title = "Duplicate") {
    stockroom.user().GoToCell(Grid(), row, 1);
    ExpectBox("Are you sure you want to duplicate this part group item?", Answer::Yes,
              "Part Group - Duplicate");
    if (!refused.empty()) ExpectBox(refused, Answer::Ok, title);
    Click(List().duplicate);
    stockroom.desktop.AllCame();
  }
};

TEST_F(PGSummaryTest, ListsTheGroupsInTheOrderChosen) {
  InList([&] {
    EXPECT_EQ(GridText(Grid()), "Air kit|Air|7||\nPump set|Kits|12|8.1235|twice a year\n");
    EXPECT_EQ(List().StatusBar1.PanelText(1), "1 of 2 records");
    stockroom.Fill("R_Master", "rec_id | pcenter | name | category\n 3 | 0 | Zone | Belts");
    stockroom.user().Choose(List().sort_cate);
    EXPECT_EQ(Numbers(), "7\n3\n12\n");
    stockroom.user().Choose(List().sort_rnum);
    EXPECT_EQ(Numbers(), "12\n3\n7\n");
    EXPECT_TRUE(stockroom.user().PressKey(Grid(), "7"));
    EXPECT_EQ(List().StatusBar1.PanelText(1), "3 of 3 records");
    stockroom.user().GoToCell(Grid(), 1, KVI_PGSummary::kCostColumn);
    stockroom.user().PressKey(Grid(), "7");
    EXPECT_EQ(Grid().ActiveRow(), 1) << "letters search in the first three columns";
    Find(List().find_lab, "7");
    EXPECT_EQ(Grid().ActiveRow(), 3);
    Grid().SetColWidth(2, 100);
  });
  InList([&] {
    EXPECT_TRUE(List().sort_name.Value);
    EXPECT_EQ(Grid().ColWidth(2), 150);
    EXPECT_EQ(Grid().ActiveRow(), 3);
  });
}

TEST_F(PGSummaryTest, AnEmptyListSaysWhatToDo) {
  stockroom.Execute("DELETE * FROM R_Master");
  const char* none =
      "No part group items in the system.  Click on the '+' icon to add a new part group item.";
  ExpectBox(none);
  stockroom.desktop.ExpectScreen("KVI_PGSummary", [&] {
    EXPECT_EQ(Grid().MaxRows(), 0);
    Click(List().remove);
    Click(List().duplicate);
    stockroom.user().DoubleClick(Grid(), 0, 1);
    ExpectBox(none);
    Click(List().refresh_lab);
    stockroom.user().CloseWindow(List());
  });
  stockroom.user().Click(stockroom.MainScreen().MaintProc);
}

TEST_F(PGSummaryTest, RemovesTheActiveGroupOrEverySelectedOneAndLeavesTheirLines) {
  stockroom.Fill("R_Master", "rec_id | pcenter | name\n 1 | 0 | A\n 2 | 0 | B\n 3 | 0 | C");
  jet::Database other = OtherDesk();
  InList([&] {
    EXPECT_EQ(Numbers(), "1\n7\n2\n3\n12\n");
    ExpectRemoval(Answer::No);
    Click(List().remove);
    stockroom.user().GoToCell(Grid(), 5, 1);
    ExpectRemoval(Answer::Yes);
    Click(List().remove);
    EXPECT_EQ(Numbers(), "1\n7\n2\n3\n");
    // One of the selected groups is gone by then.
    stockroom.user().Select(Grid(), {{1, 1, 2, 1}, {4, 1, 4, 5}});
    ExpectRemoval(Answer::Yes);
    stockroom.desktop.Meanwhile([&] { other.Execute("DELETE * FROM R_Master WHERE rec_id='7'"); });
    Click(List().remove);
    EXPECT_EQ(Numbers(), "2\n");
    // Another desk's lock leaves the list as it is.
    jet::Recordset theirs = other.OpenRecordset("SELECT * FROM R_Master");
    ExpectRemoval(Answer::Yes);
    stockroom.desktop.Meanwhile([&] { theirs.Edit(); });
    ExpectBox("3260 " + DescriptionOf(3260));
    Click(List().remove);
    EXPECT_EQ(Numbers(), "2\n");
    theirs.CancelUpdate();
    // The lines of number 12 are still there, and go with the first save of a new group.
    EXPECT_NE(Stored("12"), "");
    InBuilder(0, [&] {
      Type(Builder().rec_id, "12");
      AddPart(3);
      Click(Builder().save);
      Click(Builder().exit_lab);
    });
    EXPECT_EQ(Numbers(), "2\n");
    Click(List().refresh_lab);
    EXPECT_EQ(Numbers(), "12\n2\n");
  });
  EXPECT_EQ(Stored("12"), "100|0|Seal|each|0|0.25|thin|\n");
}

TEST_F(PGSummaryTest, DuplicatesAGroupWithItsLines) {
  stockroom.Execute("UPDATE Inv_Recipe SET inv_id = '10 ' WHERE iname = 'Old name'");
  InList([&] {
    Duplicate(2);
    EXPECT_EQ(GridText(Grid()),
              "Air kit|Air|7||\nPump set|Kits|12|8.1235|twice a year\n"
              "Pump set DUP|Kits|12 DUP|8.1235|twice a year\n");
    Duplicate(2, "Duplicate already exists. New record NOT created.");
    Duplicate(3, "You cannot duplicate a 'duplicate'.");
  });
  // Neither the group nor its lines take the profit center over: they start in the first one.
  EXPECT_EQ(Stored("12 DUP"),
            "10|0|Old name|foot|4|2|wide|left\n55|0|Gone|each|1|0.12345|Null|Null\n"
            "99|0|Far|Null|1|Null|Null|Null\n");
  EXPECT_EQ(stockroom.Rows("SELECT cost, pcenter FROM R_Master WHERE rec_id = '12 DUP'"),
            "8.1235|0\n");
}

TEST_F(PGSummaryTest, ACopyTakesAHundredLinesAndNotOneMore) {
  std::string lines = "rec_id | pcenter | inv_id | qty";
  for (int line = 1; line <= 100; ++line) lines += "\n 7 | 0 | P" + std::to_string(line) + " | 1";
  stockroom.Fill("Inv_Recipe", lines);
  const auto copied = [&] {
    return stockroom.Rows("SELECT count(*) as n FROM Inv_Recipe WHERE rec_id = '7 DUP'");
  };
  InList([&] {
    Duplicate(1);
    EXPECT_EQ(copied(), "100\n");
    stockroom.Execute("DELETE * FROM R_Master WHERE rec_id = '7 DUP'");
    stockroom.Execute("DELETE * FROM Inv_Recipe WHERE rec_id = '7 DUP'");
    stockroom.Fill("Inv_Recipe", "rec_id | inv_id\n 7 | P101");
    Click(List().refresh_lab);
    Duplicate(1, "9 Subscript out of range", "Kestvar Inventory");
    EXPECT_EQ(copied(), "0\n");
    EXPECT_EQ(Numbers(), "7\n12\n") << "not loaded again";
    Click(List().refresh_lab);
    EXPECT_EQ(Numbers(), "7\n7 DUP\n12\n");
    EXPECT_EQ(stockroom.desktop.Pointer(), MousePointer::Default);
  });
}

TEST_F(PGSummaryTest, NewCostsShowAfterARefreshAndPrint) {
  InList([&] {
    ExpectBox(kCostQuestion, Answer::Yes);
    ExpectBox("Part Groups updated.");
    Click(List().Label3);
    EXPECT_EQ(Grid().Text(2, KVI_PGSummary::kCostColumn), "8.1235");
    Click(List().refresh_lab);
    EXPECT_EQ(Grid().Text(2, KVI_PGSummary::kCostColumn), "8.0000");
    ExpectDraftPrint();
    Click(List().print_lab);
    EXPECT_NE(stockroom.desktop.documents.back()->Page(1).find("| Pump set\n"), std::string::npos);
  });
}

}  // namespace
}  // namespace kvi::test
