#include "start/Welcome.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/IniFile.h"
#include "store/SetUpFolder.h"
#include "support/TestStockroom.h"

namespace kvi::test {
namespace {

// A desk on which the program was never started, beside one that works.
class WelcomeTest : public testing::Test {
 protected:
  bool Ask(const std::function<void()>& acts) {
    desktop.ExpectScreen("Welcome", acts);
    const bool chosen = app.Get<Welcome>().AskHowToStart([this](jet::Database&) { filled = true; });
    desktop.AllCame();
    return chosen;
  }
  void Click(Button& button) { EXPECT_TRUE(user.Click(button)) << button.Name(); }
  Welcome& Screen() { return app.Get<Welcome>(); }

  TemporaryFolder temporary;
  TestStockroom other;
  ScriptedDesktop desktop;
  FixedClock clock;
  FixedChance chance;
  const std::string folder = temporary / "home/kestvar";
  Application app{{desktop, clock, chance, folder, ""}};
  Gestures user{app.screens};
  bool filled = false;
};

TEST_F(WelcomeTest, LeavingMakesNothingAndASampleIsFilled) {
  EXPECT_TRUE(IsNewFolder(folder));
  EXPECT_FALSE(Ask([&] { Click(Screen().leave); }));
  EXPECT_FALSE(std::filesystem::exists(folder));
  EXPECT_TRUE(Ask([&] { Click(Screen().sample); }));
  EXPECT_TRUE(filled);
  EXPECT_FALSE(IsNewFolder(folder));
  EXPECT_TRUE(std::filesystem::exists(folder + "/KV_Inventory.mdb"));
}

TEST_F(WelcomeTest, TheStockroomOfAnotherDeskIsNamedAndNoneIsMade) {
  EXPECT_TRUE(Ask([&] {
    desktop.ExpectFile("Where is the stockroom?", std::nullopt);
    Click(Screen().shared);
    desktop.ExpectFile("Where is the stockroom?", temporary / "none/KV_Inventory.mdb");
    desktop.ExpectBox("53 There is no KV_Inventory.mdb in " + (temporary / "none") + ".");
    Click(Screen().shared);
    std::filesystem::create_directory(temporary / "none");
    std::ofstream(temporary / "none/KV_Inventory.mdb") << "of another program";
    desktop.ExpectFile("Where is the stockroom?", temporary / "none/KV_Inventory.mdb");
    desktop.ExpectBox("3343 Unrecognized database format. ('" +
                      (temporary / "none/KV_Inventory.mdb") + "')");
    Click(Screen().shared);
    EXPECT_TRUE(IsNewFolder(folder));
    desktop.ExpectFile("Where is the stockroom?", other.DatabaseFile());
    Click(Screen().shared);
  }));
  EXPECT_EQ(IniFile(folder + "/TARNWK.INI").Read("TARNWK", "DatabasePath", ""),
            other.folder.Path().string());
  EXPECT_FALSE(std::filesystem::exists(folder + "/KV_Inventory.mdb"));
  Screen().TakeBack();
  EXPECT_TRUE(IsNewFolder(folder));
}

}  // namespace
}  // namespace kvi::test
