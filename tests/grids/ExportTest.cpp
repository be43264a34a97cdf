#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "grids/ExportGridToSpreadsheet.h"
#include "support/BareScreen.h"
#include "support/ScriptedDesktop.h"
#include "support/TemporaryFolder.h"

namespace kvi {
namespace {

class ExportTest : public testing::Test {
 protected:
  ExportTest() {
    test::WriteFile(program, "#!/bin/sh\n");
    for (int col = 1; col <= 3; ++col) grid.SetHeading(col, "Head" + std::to_string(col));
    grid.SetText(1, 1, "  Bolt \"M8\" ");
    grid.SetText(1, 3, "3.50");
    grid.SetText(2, 2, "x");
  }
  void Export(const std::string& spreadsheetPath) {
    ExportGridToSpreadsheet(grid, spreadsheetPath, folder.Path().string(), desktop);
    EXPECT_EQ(desktop.Pointer(), MousePointer::Default);
    desktop.AllCame();
  }

  test::TemporaryFolder folder;
  test::ScriptedDesktop desktop;
  test::BareScreen screen;
  Spread grid{screen, "Spread1", 3, 2};
  const std::string program = folder / "the calc";
  const std::string file = folder / "temp.xls";
};

TEST_F(ExportTest, WritesHeadingsAndRowsAndStartsTheProgramUnquoted) {
  test::WriteFile(file, "what stood there before, and was much longer than what comes now\n");
  desktop.ExpectProgram(program + " \"" + file + "\"");
  Export(program);
  EXPECT_EQ(test::ReadFile(file), "Head1\tHead2\tHead3\nBolt \"M8\"\t\t3.50\n\tx\t\n");
}

TEST_F(ExportTest, WithoutAProgramOrRowsItSaysSoAndWritesNothing) {
  desktop.ExpectBox(
      "The spreadsheet program has not been entered. Use UTILITIES/PREFERENCES screen to set the "
      "path and file name.");
  Export("  ");
  const std::string notThere =
      "The spreadsheet program is not at the location specified in the UTILITIES/PREFERENCES "
      "screen.";
  test::WriteFile(folder / "empty", "");
  for (const char* name : {"none", "empty"}) {
    desktop.ExpectBox(notThere);
    Export(folder / name);
  }
  grid.SetMaxRows(0);
  desktop.ExpectBox("Nothing to export", Answer::Ok, "Export");
  Export(program);
  EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(ExportTest, FailuresAreToldUnderTheTitleExport) {
  desktop.ExpectProgram(program + " \"" + file + "\"", 53);
  desktop.ExpectBox(
      "Microsoft Excel was not installed at the normal default location. The file is "
      "called " +
          file + " can be loaded into Excel manually.",
      Answer::Ok, "Export");
  Export(program);

  desktop.ExpectProgram(program + " \"" + file + "\"", 5);
  desktop.ExpectBox("An error has occurred.  (5 - Invalid procedure call or argument)", Answer::Ok,
                    "Export");
  Export(program);

  std::filesystem::remove(file);
  std::filesystem::create_directory(file);
  desktop.ExpectBox("An error has occurred.  (75 - Path/File access error)", Answer::Ok, "Export");
  Export(program);
}

}  // namespace
}  // namespace kvi
