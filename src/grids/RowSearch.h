#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/Controls.h"
#include "platform/Spread.h"

namespace kvi {

// The field over a list that narrows its rows as it is typed: those remain that have every word in
// one of the columns looked through, whatever its case. Escape brings all back. Its screen owns it,
// and calls Forget before a load and Narrow behind it.
class RowSearch {
 public:
  // What of a list is looked through, and how many rows can show at once; `narrowed` runs behind
  // the user's typing.
  struct List {
    Spread& grid;
    std::vector<int> columns;
    int mostRows;
    std::function<void()> narrowed;
  };
  RowSearch(Screen& screen, List list);

  // All rows are back, for a load.
  void Forget();
  // Narrows what was loaded by the words that stand.
  void Narrow();
  // Another visit begins.
  void Clear();
  // "12 of 345 parts", or "" while nothing is looked for.
  std::string Told() const;

  TextBox Search;

 private:
  std::vector<std::string> Words() const;
  bool ReadTexts();  // false when they are read

  List list_;
  std::vector<std::string> texts_;  // of all rows, in capitals; read when they are wanted
  bool clearing_ = false;
};

}  // namespace kvi
