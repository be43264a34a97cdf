#pragma once

#include "items/KVI_InventoryDetail.h"
#include "items/KVI_InventoryDetail1Screen.h"
#include "items/KVI_InventorySummary.h"
#include "support/Story.h"

namespace kvi::test {

// Which of the two layouts the preferences choose.
enum class View { Tabs, OnePage };

// A user who works with parts through the summary and a detail screen. The summary lists 10
// "Belt", 20 "Ring", 30 "Seal", in this order.
class DetailStory : protected Story {
 public:
  explicit DetailStory(View view) : view_(view) {
    stockroom.Set("UseOldStyleInventoryDetail", OnePage() ? "1" : "0");
    stockroom.Fill("DD_category", "Description\n Belts\n Seals");
    stockroom.Fill("DD_how_purchased", "Description\n case");
    stockroom.Fill("Vendor_Info", "Name\n Nord\n Alpha");
    stockroom.Fill(
        "I_Master",
        "inv_id | pcenter | name | category | location | desc | how_purchased | how_inv | how_used "
        "| hi_qty | hu_qty | cost_per | qty_on_hand | re_order | optimal | valuation | active | "
        "where1 | w1_id | where2 | w2_id | Price1 | Price2 | VendorOptNo | notes | BarCodeScan | "
        "CorpInventoryItem\n"
        "10 | 0 | Belt | Belts | Bin 2 | wide | case | box | belt | 12 | 10 | 100 | 14.5 | 2 | 20 "
        "| 1450 | YES | Nord | N7 | Alpha | A7 | 99.5 | 101.25 | 2 | dry place | 0815 | True\n"
        "20 | 0 | Ring | Seals | | | bag | each | each | 1 | 1 | 2.5 | 8 | | | 20 | NO | | | | | 7 "
        "| | | | | False\n"
        "30 | 0 | Seal | Seals | Bin 1 | | each | each | each | 3 | 7 | 100 | 0 | 0 | 0 | 0 | YES "
        "| Omega | | | | 1 | | 1 | | | True");
  }

  bool OnePage() const { return view_ == View::OnePage; }
  std::string Name() const {
    return OnePage() ? "KVI_InventoryDetail1Screen" : "KVI_InventoryDetail";
  }
  KVI_InventorySummary& Summary() { return The<KVI_InventorySummary>(); }
  ItemDetailScreen& Detail() {
    if (OnePage()) return The<KVI_InventoryDetail1Screen>();
    return The<KVI_InventoryDetail>();
  }

  // Runs a user's acts on the summary and leaves it; `stale` tells what the parts groups' costs
  // were then.
  void InSummary(const Acts& user) {
    Visit<KVI_InventorySummary>(&Main::Label1, [&] {
      user();
      stale = stockroom.App().PartGroupCostsStale;
      stockroom.App().PartGroupCostsStale = false;
    });
  }
  // The user's acts on the detail screen that comes next; it is left by its window's box unless
  // they leave it.
  void ExpectDetail(const std::function<void(ItemDetailScreen&)>& user) {
    stockroom.desktop.ExpectScreen(Name(), [this, user] {
      user(Detail());
      stockroom.user().CloseWindow(Detail());
    });
  }
  void OpenRow(int row, const std::function<void(ItemDetailScreen&)>& user) {
    ExpectDetail(user);
    stockroom.user().DoubleClick(Summary().Spread1, row, 1);
  }
  void WithPart(int row, const std::function<void(ItemDetailScreen&)>& user) {
    InSummary([&] { OpenRow(row, user); });
  }

  // Types into a field and leaves it.
  template <class Field>
  void Enter(Field& field, const std::string& text) {
    Type(field, text);
    EXPECT_TRUE(stockroom.user().Leave(field)) << field.Name();
  }

  std::string Items(const std::string& fields, const std::string& where = "") {
    return stockroom.Rows("SELECT " + fields + " FROM I_Master" +
                          (where.empty() ? "" : " WHERE " + where) + " ORDER BY inv_id");
  }

  bool stale = false;

 private:
  View view_;
};

// A story told on both layouts.
class DetailStoryTest : public ::testing::TestWithParam<View>, protected DetailStory {
 protected:
  DetailStoryTest() : DetailStory(GetParam()) {}
};

inline const auto kBothViews = ::testing::Values(View::Tabs, View::OnePage);
inline std::string ViewName(const ::testing::TestParamInfo<View>& view) {
  return view.param == View::Tabs ? "Tabs" : "OnePage";
}

// The texts of controls, parted by "|".
template <class... Controls>
std::string Texts(const Controls&... controls) {
  std::string texts;
  ((texts += controls.Text() + "|"), ...);
  texts.pop_back();
  return texts;
}

}  // namespace kvi::test
