#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "support/TestStockroom.h"

namespace kvi::test {

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
