#include <gtest/gtest.h>

#include <map>
#include <set>

#include "base/Text.h"
#include "platform/Controls.h"
#include "support/AllScreens.h"
#include "support/TestStockroom.h"

// What every screen of the system keeps.
namespace kvi::test {
namespace {

// The letter behind the "&" of the access key; 0 without one.
char AccessKey(const std::string& caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&') continue;
    if (caption[i + 1] != '&') return UCase(caption.substr(i + 1, 1))[0];
    ++i;
  }
  return 0;
}

// What stands in a screen's layout.
struct Placed {
  std::set<const Control*> controls;
  std::vector<std::string> labels;  // of fields, that are no controls
};

void Collect(const Layout& node, Placed& placed) {
  const bool isFirst = node.control == nullptr || placed.controls.insert(node.control).second;
  EXPECT_TRUE(isFirst) << node.control->Name() << " stands twice";
  if (node.kind == Layout::Kind::Text) placed.labels.push_back(node.text);
  for (const Layout& child : node.children) Collect(child, placed);
}

void Check(Screen& screen) {
  Placed placed;
  Collect(screen.Arrange(), placed);
  // Of the window, and of each menu's own entries.
  std::map<const Control*, std::map<char, std::string>> taken;
  const auto take = [&](const Control* menu, const std::string& caption) {
    const char key = AccessKey(caption);
    const auto [first, isFirst] = taken[menu].emplace(key, caption);
    EXPECT_TRUE(key == 0 || isFirst) << screen.Name() << ": " << caption << " and " << first->second
                                     << " have the same access key";
  };
  for (const std::string& label : placed.labels) take(nullptr, label);
  for (const Control* control : screen.Controls()) {
    const bool hasOwnPlace = control->Kind() == ControlKind::Menu ||
                             control->Kind() == ControlKind::MenuItem ||
                             control->Kind() == ControlKind::StatusBar;
    EXPECT_TRUE(hasOwnPlace || placed.controls.contains(control))
        << screen.Name() << "." << control->Name() << " stands nowhere";
    const auto* item = dynamic_cast<const MenuItem*>(control);
    if (const auto* captioned = dynamic_cast<const Captioned*>(control))
      take(item == nullptr ? nullptr : &item->Parent(), captioned->Caption);
  }
}

TEST(AllScreensTest, EveryControlHasItsPlaceAndEveryAccessKeyItsOneControl) {
  TestStockroom stockroom;
  ASSERT_TRUE(stockroom.Start());
  for (Screen* screen : AllScreens(stockroom.App())) Check(*screen);
}

}  // namespace
}  // namespace kvi::test
