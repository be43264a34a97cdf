#include "base/RunTimeError.h"
#include "items/DetailStory.h"

namespace kvi::test {
namespace {

class DetailScreenTest : public DetailStoryTest {
 protected:
  static constexpr const char* kDialog = "Select Image";
  static constexpr const char* kTitle = "Change inventory part #";

  std::string Prompt() const {
    return std::string("What new inventory part ID# would you like to use?") +
           (OnePage() ? " " : "  ") + "(15 characters maximum)";
  }
  void AnswerNumber(const std::optional<std::string>& answer) {
    stockroom.desktop.ExpectInput(Prompt(), answer, kTitle);
  }
  void ExpectLastQuestion(const std::string& number, Answer answer) {
    ExpectBox("This will change the current part # to " + number +
                  ". Once this change has been made, this screen must exit.  Your changes have "
                  "already been saved.\n\nContinue?",
              answer);
  }
};
INSTANTIATE_TEST_SUITE_P(Views, DetailScreenTest, kBothViews, ViewName);

TEST_P(DetailScreenTest, APictureIsChosenKeptByItsPathAndRemoved) {
  const std::string picture = stockroom.folder / "belt.gif", text = stockroom.folder / "belt.txt",
                    gone = stockroom.folder / "gone.bmp";
  WriteFile(picture, "GIF89a");
  WriteFile(text, "no picture");
  stockroom.desktop.brokenPictures = {text};
  InSummary([&] {
    OpenRow(1, [&](ItemDetailScreen& part) {
      stockroom.desktop.ExpectFile(kDialog, std::nullopt);
      Click(part.Command5);
      stockroom.desktop.ExpectFile(kDialog, gone);
      ExpectBox("53 File not found");
      Click(part.Command5);
      stockroom.desktop.ExpectFile(kDialog, text);
      ExpectBox("481 Invalid picture");
      Click(part.Command5);
      EXPECT_FALSE(part.ItemDirty());
      for (int again = 0; again < 2; ++again) {
        stockroom.desktop.ExpectFile(kDialog, picture);
        Click(part.Command5);
        EXPECT_TRUE(part.ItemDirty()) << "even by the same file";
        EXPECT_EQ(part.Imageman1.Path(), picture);
        Click(part.save);
      }
    });
    EXPECT_EQ(Items("picpath", "inv_id = '10'"), picture + " \n");
    std::filesystem::remove(picture);
    OpenRow(1, [&](ItemDetailScreen& part) {
      EXPECT_EQ(part.picpath.Text() + "|" + part.Imageman1.Path(), picture + "|");
      Click(part.Command7);
      EXPECT_EQ(part.picpath.Text(), "");
      Click(part.save);
    });
  });
  EXPECT_EQ(Items("picpath", "inv_id = '10'"), " \n");
}

TEST_P(DetailScreenTest, TheDetailReportShowsWhatTheScreenShows) {
  WithPart(1, [&](ItemDetailScreen& part) {
    Enter(part.hp_cost_per, "12.3456");
    stockroom.user().Type(part.notes,
                          "dry place\n" + std::string(70, 'a') + " " + std::string(70, 'b'));
    ExpectBox("Changes must be saved before printing.  Save changes and print?", Answer::Cancel);
    Click(part.print_lab);
    EXPECT_TRUE(stockroom.desktop.documents.empty());
    ExpectBox("Changes must be saved before printing.  Save changes and print?", Answer::Ok);
    Click(part.print_lab);
    EXPECT_FALSE(part.ItemDirty());
    part.notes.Text = std::string(60, '\n') + "last line";
    part.how_purchased.Text = "shrink-wrapped layer";
    part.SaveItem();
    Click(part.print_lab);
  });
  ASSERT_EQ(stockroom.desktop.documents.size(), 2U);
  EXPECT_NE(stockroom.desktop.documents[1]->Page(2).find("| last line"), std::string::npos);
  EXPECT_NE(stockroom.desktop.documents[1]->Page(1).find(
                " bold 6 | Re-Order Level (shrink-wrapped la\u2026\n2.10 "),
            std::string::npos)
      << stockroom.desktop.documents[1]->Page(1);
  const RecordedDocument& report = *stockroom.desktop.documents[0];
  EXPECT_TRUE(report.ended);
  EXPECT_EQ(report.Shapes(1), "line 0.00 0.91 8.50 0.91\n");
  const std::string page = report.Page(1);
  EXPECT_EQ(page.substr(0, page.find("0.30 1.16")),
            "0.30 0.30 bold 12 | Harbour Works\n0.30 0.50 bold 10 | Detail Report\n"
            "0.30 0.67 10 | 3/9/2026\n0.30 0.99 bold 10 | Name:\n2.10 0.99 10 | Belt\n");
  for (const char* line :
       {"bold 10 | Cost Per (case):", OnePage() ? " 10 | 12.3456" : " 10 | 12.35",
        "bold 10 | Quantity on Hand:", " 10 | 14.50", " 10 | 179.01", " | Re-Order Level (case):",
        "bold 10 | Par Level (case): ", "bold 10 | Where to Re Order 3:\n0.30",
        "2.10 3.66 10 | dry place", "3.83 10 | aaa", "3.99 10 | bbb"})
    EXPECT_NE(page.find(line), std::string::npos) << line << " in\n" << page;
}

TEST_P(DetailScreenTest, TheScreenPrintAsksFirst) {
  WithPart(1, [&](ItemDetailScreen& part) {
    for (const Answer answer : {Answer::No, Answer::Yes}) {
      ExpectDraftPrint(answer);
      Click(part.sprint_lab);
    }
  });
  EXPECT_EQ(stockroom.desktop.screensPrinted, std::vector<std::string>{Name()});
}

TEST_P(DetailScreenTest, ANewNumberGoesToPartsGroupLinesAndOpenOrdersAlone) {
  stockroom.Execute("UPDATE I_Master SET inv_id = 'ab1' WHERE inv_id = '10'");
  stockroom.Fill("Inv_Recipe", "rec_id | inv_id | desc\n A | AB1 |\n B | ab1 | RECIPE IN RECIPE");
  stockroom.Fill("PSO_Detail", "pso_id | pso_inv_id\n 1 | ab1");
  stockroom.Fill("Hist_Purchases", "inv_id | p_date | p_qty | price\n ab1 | 2026-01-05 | 99 | 1");
  InSummary([&] {
    OpenRow(1, [&](ItemDetailScreen& part) {
      EXPECT_EQ(part.valuation.Text(), "14.50");
      Enter(part.desc, "saved first");
      AnswerNumber("New number is too long");
      ExpectLastQuestion("New number is t", Answer::Ok);
      ExpectBox("Change is complete.");
      Click(part.btnCID);
      EXPECT_FALSE(stockroom.App().screens.IsShown(part));
    });
    EXPECT_EQ(Summary().Spread1.Text(1, 4), "New number is t");
    OpenRow(1, [&](ItemDetailScreen& part) {
      EXPECT_EQ(part.valuation.Text(), "1450.00") << "the history was left behind";
    });
  });
  EXPECT_EQ(Items("desc", "inv_id = 'New number is t'"), "saved first\n");
  EXPECT_EQ(stockroom.Rows("SELECT inv_id FROM Inv_Recipe"), "New number is t\nNew number is t\n");
  EXPECT_EQ(stockroom.Rows("SELECT pso_inv_id FROM PSO_Detail"), "New number is t\n");
  EXPECT_EQ(stockroom.Rows("SELECT inv_id FROM Hist_Purchases"), "ab1\n");
}

TEST_P(DetailScreenTest, ANumberChangeThatIsRefusedOrCancelledChangesNothing) {
  WithPart(1, [&](ItemDetailScreen& part) {
    for (const std::optional<std::string>& answer :
         {std::optional<std::string>(), std::optional<std::string>(""),
          std::optional<std::string>("   ")}) {
      AnswerNumber(answer);
      ExpectBox("Change not made.");
      Click(part.btnCID);
    }
    for (const char* used : {" 20 ", "10"}) {
      AnswerNumber(used);
      ExpectBox("Part # already in use.  Change not made.");
      Click(part.btnCID);
    }
    AnswerNumber("11");
    ExpectLastQuestion("11", Answer::Cancel);
    ExpectBox("Change not made.");
    Click(part.btnCID);
    EXPECT_EQ(Items("inv_id"), "10\n20\n30\n");
  });
}

TEST_P(DetailScreenTest, AFailingNumberChangeStopsAndLeavesTheScreenOpen) {
  jet::Database other = OtherDesk();
  jet::Recordset theirs = other.OpenRecordset("SELECT * FROM I_Master WHERE inv_id = '10'");
  WithPart(1, [&](ItemDetailScreen& part) {
    AnswerNumber("11");
    ExpectLastQuestion("11", Answer::Ok);
    theirs.Edit();
    ExpectBox("3260 " + DescriptionOf(3260));
    Click(part.btnCID);
    EXPECT_TRUE(stockroom.App().screens.IsShown(part));
    EXPECT_EQ(stockroom.desktop.Pointer(), MousePointer::Hourglass);
    theirs.CancelUpdate();
  });
  EXPECT_EQ(Items("inv_id"), "10\n20\n30\n");
}

}  // namespace
}  // namespace kvi::test
