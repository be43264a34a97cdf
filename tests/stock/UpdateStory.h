#pragma once

#include "base/RunTimeError.h"
#include "stock/KVI_UpdateInventory.h"
#include "support/Story.h"

namespace kvi::test {

// A user at the update screen. It lists, by name: 10 "Belt" (a dozen in a case), 9 "Ring", 100
// "Seal"; the inactive part and the one of another profit center stay away.
class UpdateStory : public ScreenStory<KVI_UpdateInventory> {
 protected:
  UpdateStory() {
    stockroom.Set("AcceptableVariance", "5");
    stockroom.Fill(
        "I_Master",
        "inv_id | pcenter | name | category | location | desc | how_purchased | how_inv "
        "| how_used | hi_qty | hu_qty | cost_per | qty_on_hand | re_order | valuation | "
        "active\n"
        "10 | 0 | Belt | Belts | Bin 2 | wide | case | box | each | 12 | 1 | 12 | 4.99 | "
        "5 | 7 | YES\n"
        "9 | 0 | Ring | Seals | Bin 3 | | bag | each | each | 1 | 1 | 2.346 | 100 | 5 | "
        "7 | yes\n"
        "100 | 0 | Seal | Belts | Bin 1 | thin | each | each | each | 1 | 1 | 3 | 5 | 5 "
        "| 7 | YES\n"
        "11 | 0 | Old | Belts | Bin 9 | | each | each | each | 1 | 1 | 3 | 5 | 5 | 7 | "
        "NO\n"
        "12 | 4 | Far | Belts | Bin 9 | | each | each | each | 1 | 1 | 3 | 5 | 5 | 7 | "
        "YES");
  }

  // Opens the screen by its tile, runs the user's acts and leaves it; `questions` are expected
  // while leaving.
  void Update(
      const Acts& user, const Acts& questions = [] {}) {
    Visit<KVI_UpdateInventory>(&Main::Label6, [&] {
      user();
      questions();
    });
  }
  void Buying(
      const Acts& user, const Acts& questions = [] {}) {
    Update(
        [&] {
          stockroom.user().Choose(Screen().TabStrip1, 1);
          user();
        },
        questions);
  }
  void Sort(const std::string& choice) { Choose(Screen().SortCombo, choice); }
  std::string Numbers() { return Column(4); }
  std::string Items(const std::string& fields) {
    return stockroom.Rows("SELECT " + fields +
                          " FROM I_Master WHERE pcenter = 0 and active = 'YES' ORDER BY name");
  }
};

inline constexpr const char* kReadOnly =
    "Current security clearance is READ ONLY.\n\nChanges NOT Saved";
inline constexpr const char* kSaveBeforeExiting = "Changes have been made.  Save before exiting?";
inline constexpr const char* kPrintBeforeExiting =
    "Variances must be printed before exiting.  Once you exit, any record of the actual variance "
    "is gone.  Print before exiting?";
inline const std::string kOneSaved = "\n\nSaved before that: 1 of 3 lines.";
inline constexpr const char* kUpdateGroups =
    "You made a change to one or more items(s).  Should we update the part groups?";

}  // namespace kvi::test
