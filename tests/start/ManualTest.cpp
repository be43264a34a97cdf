#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>

#include "frame/Manual.h"
#include "support/AllScreens.h"
#include "support/Documents.h"
#include "support/TestStockroom.h"

namespace kvi::test {
namespace {

namespace fs = std::filesystem;

TEST(ManualTest, EveryScreenHasItsPageAndEveryLinkAndPictureItsTarget) {
  TestStockroom stockroom;
  ASSERT_TRUE(stockroom.Start());
  const fs::path manual = kSources / "docs/manual";
  std::set<std::string> screens;
  for (const Screen* screen : AllScreens(stockroom.App())) {
    screens.insert(screen->Name());
    const fs::path page = manual / fs::path(ManualPage(screen->Name())).replace_extension(".md");
    EXPECT_TRUE(fs::exists(page)) << page;
  }
  const std::regex link(R"(\]\(([^)#]+))"), picture(R"(pictures/(\w+)(-\d)?\.png)");
  for (const auto& page : fs::directory_iterator(manual)) {
    if (page.path().extension() != ".md") continue;
    for (const std::string& target : Matches(ReadAll(page.path()), link)) {
      std::smatch shown;
      const bool isPicture = std::regex_match(target, shown, picture);
      EXPECT_TRUE(isPicture ? screens.contains(shown[1]) : fs::exists(manual / target))
          << page.path() << ": " << target;
    }
  }
}

}  // namespace
}  // namespace kvi::test
