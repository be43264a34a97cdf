#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "grids/KVI_Find.h"
#include "support/TestStockroom.h"

namespace kvi::test {

inline constexpr const char* kCostQuestion =
    "This option will update all of your part groups to the latest costs.  \n\n"
    "Are you sure you want to continue?";

// A user at the screens of a stockroom; the base of the fixtures that tell of one. An act that is
// not possible fails the test.
class Story {
 protected:
  using Acts = std::function<void()>;

  template <class S>
  S& The() {
    return stockroom.App().Get<S>();
  }
  // Opens a screen by its tile, runs the user's acts there and leaves it by its label.
  template <class S>
  void Visit(ActionLabel Main::*tile, const Acts& acts) {
    stockroom.desktop.ExpectScreen(The<S>().Name(), [&] {
      acts();
      Click(The<S>().exit_lab);
    });
    Click(stockroom.MainScreen().*tile);
    stockroom.desktop.AllCame();
  }
  template <class Clickable>
  void Click(Clickable& control) {
    EXPECT_TRUE(stockroom.user().Click(control)) << control.Name();
  }
  template <class Field>
  void Type(Field& field, const std::string& text) {
    EXPECT_TRUE(stockroom.user().Type(field, text)) << field.Name();
  }
  void Choose(ComboBox& combo, const std::string& entry) {
    EXPECT_TRUE(stockroom.user().Choose(combo, combo.IndexOf(entry))) << entry;
  }
  void ExpectBox(const std::string& text, Answer answer = Answer::Ok,
                 const std::string& title = "Kestvar Inventory") {
    stockroom.desktop.ExpectBox(text, answer, title);
  }
  // What a save meets while another desk's lock lasts.
  void ExpectLock(Answer answer) {
    ExpectBox(kLockQuestion, answer, "KV Inventory Save");
    if (answer == Answer::No) ExpectBox("Changes have NOT been saved", Answer::Ok, "KV Inventory");
  }
  void ExpectDraftPrint(Answer answer = Answer::Yes) {
    ExpectBox(
        "This is a draft/screen print only. Use the 'print system' for better quality.\n\n"
        "Are you sure you want to print this report?",
        answer, "Print");
  }
  void ExpectOnPaper(std::initializer_list<const char*> texts) {
    ASSERT_FALSE(stockroom.desktop.documents.empty());
    const std::string page = stockroom.desktop.documents.back()->Page(1);
    for (const char* text : texts)
      EXPECT_NE(page.find(text), std::string::npos) << text << " in\n" << page;
  }
  // What the spreadsheet program is given.
  template <class Clickable>
  std::string ExportedBy(Clickable& control) {
    const std::string program = stockroom.folder / "calc", file = stockroom.folder / "temp.xls";
    WriteFile(program, "#!");
    stockroom.App().SpreadsheetPath = program;
    stockroom.desktop.ExpectProgram(program + " \"" + file + "\"");
    Click(control);
    return ReadFile(file);
  }
  // Searches by a screen's own label or entry.
  template <class Clickable>
  void Find(Clickable& control, const std::string& text) {
    stockroom.desktop.ExpectScreen("KVI_Find", [&] {
      Type(The<KVI_Find>().Text1, text);
      Click(The<KVI_Find>().Label12);
    });
    Click(control);
  }
  jet::Database OtherDesk() { return jet::Database::Open(stockroom.DatabaseFile(), false); }

  TestStockroom stockroom;
};

class StoryTest : public ::testing::Test, protected Story {};

// A story at one screen with a grid.
template <class S>
class ScreenStory : public StoryTest {
 protected:
  S& Screen() { return The<S>(); }
  Spread& Grid() { return Screen().Spread1; }
  using StoryTest::Type;
  void Type(int row, int col, const std::string& text) {
    EXPECT_TRUE(stockroom.user().TypeIntoCell(Grid(), row, col, text)) << row << ", " << col;
  }
  std::string Column(int col) { return GridText(Grid(), col, col); }
  int Color(int row, int col) { return Grid().Format(row, col).BackColor; }
};

}  // namespace kvi::test
