#include <gtest/gtest.h>

#include <filesystem>
#include <regex>

#include "KVI_Example.h"
#include "support/Documents.h"
#include "support/TestStockroom.h"

namespace kvi::test {
namespace {

TEST(ExampleTest, TheNameIsSavedAndAnEmployeeWhoIsGoneIsTold) {
  TestStockroom stockroom;
  stockroom.Fill("EmployeeDB", "E_Code | E_Name\n 7 | Ines");
  ASSERT_TRUE(stockroom.Start());
  auto& screen = stockroom.App().Get<KVI_Example>();
  stockroom.desktop.ExpectScreen("KVI_Example", [&] {
    stockroom.user().Type(screen.E_Name, "Ines Ortega");
    stockroom.user().Click(screen.save);
    stockroom.user().Click(screen.exit_lab);
  });
  screen.OpenEmployee("7");
  EXPECT_EQ(stockroom.Rows("SELECT E_Code, E_Name FROM EmployeeDB"), "7|Ines Ortega\n");

  stockroom.desktop.ExpectScreen("KVI_Example", [&] {
    stockroom.desktop.ExpectBox("Employee record not found", Answer::Ok);
    stockroom.user().Click(screen.save);
    stockroom.user().Click(screen.exit_lab);
  });
  screen.OpenEmployee("8");
}

// The document shows nothing that does not compile.
TEST(ExampleTest, TheDocumentShowsThisCode) {
  std::string code;
  for (const auto& file : std::filesystem::directory_iterator(kSources / "tests/example"))
    code += ReadAll(file.path());
  const auto blocks =
      Matches(ReadAll(kSources / "docs/adding-a-screen.md"), std::regex(R"(```cpp\n([^`]*)```)"));
  EXPECT_GE(blocks.size(), 4u);
  for (const std::string& block : blocks) EXPECT_NE(code.find(block), std::string::npos) << block;
}

}  // namespace
}  // namespace kvi::test
