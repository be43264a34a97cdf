#include "grids/ItemSorts.h"
#include "grids/KVI_Find.h"
#include "grids/SprdSubs.h"
#include "items/KVI_InventorySummary.h"
#include "support/Story.h"

namespace kvi::test {
namespace {

constexpr const char* kNoneInSummary = "No items found - starting back at the top of spreadsheet.";
constexpr const char* kNone = "No more found - starting back at the top.";

class FindTest : public StoryTest {
 protected:
  FindTest() {
    stockroom.Fill("I_Master",
                   "inv_id | pcenter | name | category | location | desc | active\n"
                   "10 | 0 | Belt A20 | Drives | Bin 3 | wide | YES\n"
                   "7 | 0 | Belt B54 | Seals | Bin 1 | short | YES\n"
                   "8 | 0 | Cap | Drives | Rack | round | YES\n"
                   "9 | 0 | Valve | Drives | Bin 2 | '  Steel' | YES");
  }
  void InSummary(const Acts& user) { Visit<KVI_InventorySummary>(&Main::Label1, user); }
  void Look(const std::string& text, bool anywhere) {
    Type(Finder().Text1, text);
    if (anywhere) stockroom.user().Tick(Finder().searchCB);
    Click(Finder().Label12);
  }
  // Finds from the summary; the row that is active then.
  int Find(const std::string& text, bool anywhere = false) {
    stockroom.desktop.ExpectScreen("KVI_Find", [=, this] { Look(text, anywhere); });
    Click(Summary().find_lab);
    return Summary().Spread1.ActiveRow();
  }
  KVI_InventorySummary& Summary() { return The<KVI_InventorySummary>(); }
  KVI_Find& Finder() { return The<KVI_Find>(); }
};

TEST_F(FindTest, GoesOnBehindTheRowThatWasFoundAndStartsOverBelowTheTop) {
  InSummary([&] {
    EXPECT_EQ(Find("BELT"), 2) << "the row on which it stands is passed over";
    stockroom.desktop.ExpectScreen("KVI_Find", [&] {
      ExpectBox(kNoneInSummary);
      Look("BELT", false);
    });
    Click(Summary().find_lab);
    EXPECT_EQ(Summary().Spread1.ActiveRow(), 2) << "the active row stays";
    EXPECT_EQ(Find("BELT"), 2) << "from row 1 on: the top row is not reached";
    EXPECT_EQ(Find("VALVE"), 4) << "the last row is";
    stockroom.user().GoToCell(Summary().Spread1, 1, 3);
    EXPECT_EQ(Find("C"), 3) << "behind the row to which the user went";
    EXPECT_EQ(Summary().Spread1.ActiveCol(), 1);
  });
}

TEST_F(FindTest, LooksInTheColumnOfTheSortAtItsBeginningOrAnywhere) {
  InSummary([&] {
    const struct {
      const char *sort, *text;
      bool anywhere;
      const char* found;
    } cases[] = {{"Location", "RACK", false, "8"},     {"Location", "IN 3", true, "10"},
                 {"Category", "SEAL", false, "7"},     {"#", "9", false, "9"},
                 {"Description", "STEEL", false, "9"}, {"Name", "54", true, "7"}};
    for (const auto& c : cases) {
      Choose(Summary().SortCombo, c.sort);
      Summary().Spread1.Row = 0;  // so that the top row is looked at too
      const int row = Find(c.text, c.anywhere);
      EXPECT_EQ(Summary().Spread1.Text(row, KVI_InventorySummary::kNumberColumn), c.found)
          << c.sort << " " << c.text;
    }
  });
}

// Only the cell is put in capitals.
TEST_F(FindTest, SmallLettersFindNothingCaseSensitiveOrNot) {
  InSummary([&] {
    for (const bool sensitive : {false, true}) {
      stockroom.desktop.ExpectScreen("KVI_Find", [&] {
        if (sensitive) stockroom.user().Tick(Finder().casecheck);
        ExpectBox(kNoneInSummary);
        Look("Valve", true);
      });
      Click(Summary().find_lab);
    }
  });
}

TEST_F(FindTest, OpensEmptyEachTimeAndItsExitsLeaveTheGridAlone) {
  InSummary([&] {
    Find("CAP", true);
    Summary().Spread1.SetText(1, 1, "kept");
    for (ActionLabel* exit :
         std::initializer_list<ActionLabel*>{&Finder().Label11, &Finder().Label12, nullptr}) {
      stockroom.desktop.ExpectScreen("KVI_Find", [&] {
        EXPECT_EQ(Finder().Text1.Text(), "");
        EXPECT_FALSE(Finder().searchCB.Value || Finder().casecheck.Value);
        EXPECT_EQ(Finder().Label1.Caption(), "What 'name' would you like to find?");
        stockroom.user().Tick(Finder().casecheck);
        if (exit == nullptr)
          stockroom.user().CloseWindow(Finder());
        else
          Click(*exit);
      });
      Click(Summary().find_lab);
      EXPECT_EQ(Summary().Spread1.ActiveRow(), 3);
      EXPECT_EQ(Summary().Spread1.Text(1, 1), "kept") << "a reload would have taken it";
      EXPECT_FALSE(stockroom.App().ReturnedFromFind) << "used up";
    }
  });
}

// A caller whose request is of no screen.
class StrangeCaller : public FindTest {
 protected:
  StrangeCaller() {
    for (int row = 1; row <= 4; ++row) shown.SetText(row, 7, row == 3 ? "Pumps" : "Old Pumps");
    request = {.caller = "KVI_Caller", .grid = &shown, .hidden = &other, .column = 7};
  }
  void Open(const Acts& user) {
    stockroom.desktop.ExpectScreen("KVI_Find", user);
    Finder().FindIn(request);
  }

  class Caller : public KviScreen {
   public:
    explicit Caller(Application& app) : KviScreen(app, "KVI_Caller", "", "") {}
    Layout Arrange() override { return {}; }
  };
  Caller caller{stockroom.App()};
  Spread shown{caller, "Spread2", 8, 4}, other{caller, "Spread1", 2, 2};
  FindRequest request;
};

TEST_F(StrangeCaller, TheTwoNamesInCapitalsAloneHaveAPromptOfTheirOwn) {
  for (const char* name : {"KVI_PGSUMMARY", "KVI_UPDATEINVENTORY", "KVI_INVENTORYSUMMARY",
                           "KVI_PGSummary", "KVI_UpdateInventory"}) {
    request.caller = name;
    Open([&] {
      const bool capitals =
          request.caller == "KVI_PGSUMMARY" || request.caller == "KVI_UPDATEINVENTORY";
      EXPECT_EQ(Finder().Label1.Caption(),
                capitals ? "Enter search item to locate:" : "What 'name' would you like to find?")
          << name;
      EXPECT_TRUE(Finder().SortLabel.Visible);
      Click(Finder().Label11);
    });
  }
}

TEST_F(StrangeCaller, WithoutASortChoiceTheColumnStaysAndWithoutAGridNothingIsSearched) {
  request.column = ColumnOfSortChoice("Line #");
  GoToCell(shown, 1, 7);
  Open([&] { Look("PUMPS", false); });
  EXPECT_EQ(shown.ActiveRow(), 3);
  request.grid = nullptr;
  Open([&] { Look("PUMPS", false); });
  EXPECT_TRUE(stockroom.App().ReturnedFromFind);
}

TEST_F(StrangeCaller, TheRowNumberOverflowsBehind32767) {
  shown.SetMaxRows(32767);
  shown.SetText(32767, 7, "LAST");
  Open([&] { Look("LAST", false); });
  EXPECT_EQ(shown.ActiveRow(), 32767);
  shown.SetMaxRows(32768);
  Open([&] {
    ExpectBox("6 Overflow");
    Look("LAST", false);
    EXPECT_TRUE(other.Visible);
    Click(Finder().Label11);
  });
}

}  // namespace
}  // namespace kvi::test
