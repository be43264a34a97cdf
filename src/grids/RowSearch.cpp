#include "grids/RowSearch.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "base/Flag.h"
#include "base/Number.h"
#include "base/Text.h"
#include "grids/PaintingOff.h"
#include "grids/SprdSubs.h"

namespace kvi {

RowSearch::RowSearch(Screen& screen, List list) : Search(screen, "Search"), list_(std::move(list)) {
  Search.SpokenName = "Search";
  Search.Tip =
      "Shows the parts that have every word in their name, number, description, vendor's number or "
      "location. Escape shows all; Ctrl+F comes here.";
  Search.Shortcut = "Ctrl+F";
  // (The first letter shall not wait for it.)
  Search.GotFocus = [this] {
    if (ReadTexts()) Narrow();
  };
  Search.Change = [this] {
    if (clearing_) return;
    Narrow();
    list_.narrowed();
  };
  Search.EnterPressed = [this] { list_.grid.SetFocus(); };
  Search.EscapePressed = [this] { Search.Text = ""; };
}

void RowSearch::Forget() {
  texts_.clear();
  list_.grid.ShowAllRows();
}

void RowSearch::Clear() {
  const Flag clearing(clearing_);
  texts_.clear();
  Search.Text = "";
}

std::vector<std::string> RowSearch::Words() const {
  std::istringstream typed(UCase(Search.Text()));
  std::vector<std::string> words;
  for (std::string word; typed >> word;) words.push_back(std::move(word));
  return words;
}

// A line end stands between two cells: no word goes over it.
bool RowSearch::ReadTexts() {
  Spread& grid = list_.grid;
  if (texts_.size() == static_cast<std::size_t>(grid.AllRows())) return false;
  const PaintingOff hidden(grid);
  grid.ShowAllRows();
  texts_.clear();
  texts_.reserve(static_cast<std::size_t>(grid.MaxRows()));
  for (int row = 1; row <= grid.MaxRows(); ++row) {
    std::string text;
    for (const int col : list_.columns) text += grid.Text(row, col) + "\n";
    texts_.push_back(UCase(text));
  }
  return true;
}

void RowSearch::Narrow() {
  Spread& grid = list_.grid;
  const PaintingOff hidden(grid);
  const std::vector<std::string> words = Words();
  if (!words.empty()) ReadTexts();
  const auto fits = [&](int place) {
    const std::string& text = texts_[static_cast<std::size_t>(place) - 1];
    return std::ranges::all_of(
        words, [&](const std::string& word) { return text.find(word) != std::string::npos; });
  };
  int shown = 0;
  grid.ShowRows([&](int place) {
    const bool shows = shown < list_.mostRows && (words.empty() || fits(place));
    shown += shows ? 1 : 0;
    return shows;
  });
}

std::string RowSearch::Told() const {
  if (Words().empty()) return "";
  return Str(list_.grid.MaxRows()) + " of " + CountOf(list_.grid.AllRows(), "part");
}

}  // namespace kvi
