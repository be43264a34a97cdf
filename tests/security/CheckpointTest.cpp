#include "security/CheckAccess.h"
#include "security/KVI_SecurityCheckpoint.h"
#include "support/Story.h"

namespace kvi::test {
namespace {

TEST(CheckAccessTest, OnlyTheThirdCharacterDecidesAndOnlyOverWriting) {
  const struct {
    const char* rights;
    int module, level;
    bool allowed;
  } cases[] = {{"WWWW", 1, 2, true},  {"12W4", 7, 2, true},  {"WW1W", 1, 2, false},
               {"WWwW", 1, 2, false}, {"WW1W", 6, 1, true},  {"", 3, 1, true},
               {"WW", 3, 2, false},   {"WWWW", 1, 3, false}, {"WWWW", 1, 0, false}};
  for (const auto& [rights, module, level, allowed] : cases)
    EXPECT_EQ(CheckAccess(rights, module, level), allowed) << rights << " " << level;
}

class CheckpointTest : public StoryTest {
 protected:
  CheckpointTest() {
    stockroom.Set("SecurityFlag", "1");
    stockroom.Fill("EmployeeDB", "E_Code | E_Name\n 12 | Ines\n 007 | Bo\n 54321 | Mia\n 0 | Nil");
  }

  // What the user does at the checkpoint, and whether the program stands afterwards.
  bool StartWith(std::function<void(KVI_SecurityCheckpoint&)> user) {
    stockroom.desktop.ExpectScreen("KVI_SecurityCheckpoint", [this, user] {
      EXPECT_EQ(stockroom.desktop.openWindows.front(), "Main") << "it stands above the main screen";
      user(The<KVI_SecurityCheckpoint>());
    });
    return stockroom.Start();
  }
  void Press(KVI_SecurityCheckpoint& screen, const std::string& digits) {
    for (char digit : digits) Click(*screen.digit[static_cast<std::size_t>(digit - '0')]);
  }
};

TEST_F(CheckpointTest, FiveDigitsSubmitByThemselves) {
  EXPECT_TRUE(StartWith([&](auto& screen) { Press(screen, "54321"); }));
  EXPECT_EQ(stockroom.App().CurrentEmployeeName, "Mia");
  EXPECT_TRUE(StartWith([&](auto& screen) { Press(screen, "00012"); }));
  EXPECT_EQ(stockroom.App().CurrentEmployeeName, "Ines") << "leading zeros fall away";
  EXPECT_TRUE(StartWith([&](auto& screen) {
    Press(screen, "9999");
    Click(screen.clear_button);
    Press(screen, "54321");
  })) << "Clear starts the count again";
}

TEST_F(CheckpointTest, ATypedCodeIsComparedAsANumber) {
  const std::pair<const char*, const char*> cases[] = {
      {"7", "Bo"}, {"007", "Bo"}, {"12abc", "Ines"}, {"54321", "Mia"}};
  for (const auto& [typed, name] : cases) {
    EXPECT_TRUE(StartWith([&, typed = typed](auto& screen) {
      Type(screen.man_in, typed);
      Click(screen.Command1);
    })) << typed;
    EXPECT_EQ(stockroom.App().CurrentEmployeeName, name) << typed;
  }
}

TEST_F(CheckpointTest, NobodyWithoutACodeOfAtLeastOneComesIn) {
  EXPECT_FALSE(StartWith([&](auto& screen) { Click(screen.cancel_button); }));
  EXPECT_FALSE(StartWith([&](auto& screen) { Press(screen, "99999"); }));
  EXPECT_FALSE(StartWith([&](auto& screen) {
    Type(screen.man_in, "abc");  // counts as 0, which an employee has
    Click(screen.Command1);
  }));
  EXPECT_EQ(stockroom.App().CurrentEmployeeName, "Nil");
}

TEST_F(CheckpointTest, ClosingTheWindowSaysSo) {
  stockroom.desktop.ExpectScreen("KVI_SecurityCheckpoint", [this] {
    stockroom.user().CloseWindow(The<KVI_SecurityCheckpoint>());
  });
  stockroom.desktop.ExpectBox(
      "You have not entered a valid ID number or have hit 'cancel'.  Please try again.");
  EXPECT_FALSE(stockroom.Start());
}

TEST_F(CheckpointTest, AnEmptyOkStaysOpenForAnotherTry) {
  EXPECT_TRUE(StartWith([&](auto& screen) {
    Click(screen.Command1);
    EXPECT_EQ(stockroom.App().CurrentEmployeeCode.Number(), -999);
    Press(screen, "12");
    EXPECT_EQ(screen.man_in.Text(), "12");
    Click(screen.Command1);
  }));
  EXPECT_EQ(stockroom.App().CurrentEmployeeCode.Text(), "12");
}

TEST_F(CheckpointTest, WithoutEmployeesNobodyIsAsked) {
  stockroom.Execute("DELETE * FROM EmployeeDB");
  EXPECT_TRUE(stockroom.Start());
  EXPECT_EQ(stockroom.App().settings.UseSecurity, 0);
}

}  // namespace
}  // namespace kvi::test
