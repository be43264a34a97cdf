#pragma once

#include "partgroups/KVI_PGDetail.h"
#include "partgroups/KVI_PGSummary.h"
#include "support/Story.h"

namespace kvi::test {

// A clerk with part groups: by name 12 "Pump set" (a belt and a seal), 7 "Air kit" stands first and
// is empty; another profit center has its own. Parts by name: 10 "Belt" (2.0000 per foot), 9 "Ring"
// (no inventoried quantity), 100 "Seal" (0.2500 each).
class GroupStory : public StoryTest {
 protected:
  GroupStory() {
    stockroom.Fill("I_Master",
                   "inv_id | pcenter | name | category | location | desc | how_used | cost_per | "
                   "hi_qty | hu_qty | active\n"
                   "10 | 0 | Belt | Belts | Bin 2 | wide | foot | 12 | 2 | 3 | YES\n"
                   "9 | 0 | Ring | Seals | Bin 3 | | each | 2 | 0 | 1 | YES\n"
                   "100 | 0 | Seal | Seals | Bin 1 | thin | each | 1 | 4 | 1 | yes\n"
                   "11 | 0 | Old | Belts | | | each | 1 | 1 | 1 | NO\n"
                   "12 | 4 | Far | Belts | | | each | 1 | 1 | 1 | YES");
    stockroom.Fill("R_Master",
                   "rec_id | pcenter | name | category | notes | cost\n"
                   "12 | 0 | Pump set | Kits | twice a year | 8.12345\n 7 | 0 | Air kit | Air | | "
                   "\n 40 | 4 | Far kit | Kits | | 1");
    stockroom.Fill("Inv_Recipe",
                   "rec_id | pcenter | inv_id | iname | how_used | qty | cost_per | desc | notes\n"
                   "12 | 0 | 10 | Old name | foot | 4 | 2 | wide | left\n"
                   "12 | 0 | 55 | Gone | each | 1 | 0.12345 | | \n 12 | 4 | 99 | Far | | 1 | | |");
    stockroom.Fill("DD_category", "Description\n Belts\n Seals\n Empty");
    stockroom.Fill("DD_rg_cat", "Description\n Kits\n Air");
  }

  KVI_PGSummary& List() { return The<KVI_PGSummary>(); }
  KVI_PGDetail& Builder() { return The<KVI_PGDetail>(); }
  Spread& Lines() { return Builder().Spread1; }
  Spread& Parts() { return Builder().Spread2; }

  void InList(const Acts& user) { Visit<KVI_PGSummary>(&Main::MaintProc, user); }
  // Opens the group of a row of the list, or a new one for row 0; the acts end with its leaving.
  void InBuilder(int row, const Acts& user) {
    stockroom.desktop.ExpectScreen("KVI_PGDetail", user);
    if (row == 0)
      Click(List().new_lab);
    else
      EXPECT_TRUE(stockroom.user().DoubleClick(List().Spread1, row, 1));
  }
  void Build(int row, const Acts& user) {
    InList([&] {
      InBuilder(row, [&] {
        user();
        Click(Builder().exit_lab);
      });
    });
  }
  void TypeQuantity(int row, const std::string& text) {
    EXPECT_TRUE(stockroom.user().TypeIntoCell(Lines(), row, KVI_PGDetail::kQuantityColumn, text));
  }
  void AddPart(int row) { EXPECT_TRUE(stockroom.user().DoubleClick(Parts(), row, 1)); }
  // The lines on the screen, from the top to the last one with a text.
  std::string Shown() {
    std::string text = GridText(Lines());
    const std::string none = "|||||||\n";
    while (text.ends_with(none)) text.erase(text.size() - none.size());
    return text;
  }
  std::string Groups() {
    return stockroom.Rows(
        "SELECT rec_id, pcenter, name, category, notes, cost FROM R_Master ORDER BY rec_id");
  }
  std::string Stored(const std::string& number) {
    return stockroom.Rows(
        "SELECT inv_id, pcenter, iname, how_used, qty, cost_per, desc, notes FROM Inv_Recipe "
        "WHERE rec_id = '" +
        number + "' ORDER BY inv_id");
  }
};

inline constexpr const char* kSaveFirst = "Changes have been made.  Save before exiting?";
inline constexpr const char* kReadOnly = "Current security clearance is READ ONLY.";

}  // namespace kvi::test
