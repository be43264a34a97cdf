#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>

#include "store/BackUpFiles.h"
#include "support/TestStockroom.h"

namespace kvi::test {
namespace {

// What kvi-backup says, and its status.
std::string BackUp(const std::string& arguments) {
  const std::string command = std::string(KVI_BACKUP) + " " + arguments + " 2>&1; echo $?";
  FILE* program = popen(command.c_str(), "r");
  std::string said;
  for (int letter = std::fgetc(program); letter != EOF; letter = std::fgetc(program))
    said += static_cast<char>(letter);
  pclose(program);
  return said;
}

TEST(BackUpProgramTest, CopiesListsAndRestoresAndTellsWhatIsWrongInALine) {
  TestStockroom stockroom;
  stockroom.Fill("I_Master", "inv_id | pcenter | name\n1 | 0 | Bolt");
  const std::string folder = stockroom.folder.Path().string();
  const std::string said = BackUp(folder);
  const auto copies = BackUpsIn(stockroom.folder / "backups");
  ASSERT_EQ(copies.size(), 2U) << said;
  const std::string copy = copies[0].Path.string();
  EXPECT_EQ(said, "copied to " + copy + "\n0\n");
  EXPECT_NE(BackUp(folder + " --list").find("  " + copy + "\n"), std::string::npos);
  stockroom.Execute("UPDATE I_Master SET name = 'Nut'");
  EXPECT_NE(BackUp(folder + " --restore '" + copy + "'").find("\nrestored " + copy + "\n0\n"),
            std::string::npos);
  EXPECT_EQ(stockroom.Rows("SELECT name FROM I_Master"), "Bolt\n");
  EXPECT_EQ(BackUpsIn(stockroom.folder / "backups").size(), 3U);

  const auto expectRefused = [](const std::string& arguments, const std::string& line) {
    const std::string refused = BackUp(arguments);
    EXPECT_TRUE(refused.starts_with("kvi-backup: " + line)) << refused;
    EXPECT_NE(refused.substr(refused.size() - 2), "0\n");
  };
  expectRefused("", "The folder is missing.");
  expectRefused(folder + " --list --restore x", "Only one of --restore and --list can be.");
  expectRefused(folder + "/backups", folder + "/backups is no program folder");
  expectRefused(folder + " --restore " + stockroom.DailyCopy().substr(0, 5), "The database file");
  expectRefused(folder + " --restore " + folder + "/KVI.INI", "Unrecognized database format.");
  EXPECT_EQ(stockroom.Rows("SELECT name FROM I_Master"), "Bolt\n");
  EXPECT_EQ(BackUpsIn(stockroom.folder / "backups").size(), 3U);
}

}  // namespace
}  // namespace kvi::test
