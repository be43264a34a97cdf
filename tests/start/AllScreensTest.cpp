#include <gtest/gtest.h>

#include <map>
#include <set>

#include "base/Text.h"
#include "grids/KVI_Find.h"
#include "items/KVI_ChooseVendors.h"
#include "items/KVI_InventoryDetail.h"
#include "items/KVI_InventoryDetail1Screen.h"
#include "items/KVI_InventorySummary.h"
#include "ordering/KVI_OrderSystem.h"
#include "partgroups/KVI_PGDetail.h"
#include "partgroups/KVI_PGSummary.h"
#include "security/KVI_SecurityCheckpoint.h"
#include "stock/KVI_Invoice.h"
#include "stock/KVI_UpdateInventory.h"
#include "support/TestStockroom.h"
#include "utilities/KVI_GetILocation.h"
#include "utilities/KVI_ManageDropLIsts.h"
#include "utilities/KVI_Utilities.h"

// What every screen of the system keeps. A new one is entered here and in the picture tour.
namespace kvi::test {
namespace {

using Placed = std::set<const Control*>;

void Collect(const Layout& node, Placed& placed) {
  const bool isFirst = node.control == nullptr || placed.insert(node.control).second;
  EXPECT_TRUE(isFirst) << node.control->Name() << " stands twice";
  for (const Layout& child : node.children) Collect(child, placed);
}

// The letter behind the "&" of the access key; 0 without one.
char AccessKey(const std::string& caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&') continue;
    if (caption[i + 1] != '&') return UCase(caption.substr(i + 1, 1))[0];
    ++i;
  }
  return 0;
}

void Check(Screen& screen) {
  Placed placed;
  Collect(screen.Arrange(), placed);
  // Of the window, and of each menu's own entries.
  std::map<const Control*, std::map<char, std::string>> taken;
  for (const Control* control : screen.Controls()) {
    const bool hasOwnPlace = control->Kind() == ControlKind::Menu ||
                             control->Kind() == ControlKind::MenuItem ||
                             control->Kind() == ControlKind::StatusBar;
    EXPECT_TRUE(hasOwnPlace || placed.contains(control))
        << screen.Name() << "." << control->Name() << " stands nowhere";
    const auto* captioned = dynamic_cast<const Captioned*>(control);
    const char key = captioned == nullptr ? '\0' : AccessKey(captioned->Caption);
    if (key == '\0') continue;
    const auto* item = dynamic_cast<const MenuItem*>(control);
    const auto [first, isFirst] =
        taken[item == nullptr ? nullptr : &item->Parent()].emplace(key, control->Name());
    EXPECT_TRUE(isFirst) << screen.Name() << ": " << control->Name() << " and " << first->second
                         << " have the access key " << key;
  }
}

TEST(AllScreensTest, EveryControlHasItsPlaceAndEveryAccessKeyItsOneControl) {
  TestStockroom stockroom;
  ASSERT_TRUE(stockroom.Start());
  Application& app = stockroom.App();
  for (Screen* screen : std::initializer_list<Screen*>{
           &stockroom.MainScreen(), &app.Get<KVI_ChooseVendors>(), &app.Get<KVI_Find>(),
           &app.Get<KVI_InventoryDetail>(), &app.Get<KVI_InventoryDetail1Screen>(),
           &app.Get<KVI_InventorySummary>(), &app.Get<KVI_SecurityCheckpoint>(),
           &app.Get<KVI_Invoice>(), &app.Get<KVI_UpdateInventory>(), &app.Get<KVI_GetILocation>(),
           &app.Get<KVI_ManageDropLIsts>(), &app.Get<KVI_OrderSystem>(), &app.Get<KVI_PGDetail>(),
           &app.Get<KVI_PGSummary>(), &app.Get<KVI_Utilities>()})
    Check(*screen);
}

}  // namespace
}  // namespace kvi::test
