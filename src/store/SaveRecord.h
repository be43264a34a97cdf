#pragma once

#include <functional>
#include <string>

#include "jet/Database.h"
#include "platform/Desktop.h"

namespace kvi {

enum class SaveEnd {
  Saved,
  GivenUp,    // another user's lock lasted and the user said No
  Duplicate,  // the key stands already
  Failed,
};

// The recovery from other desks at work. `write` is straight code. Data that changed under the edit
// is passed over: the write goes on, and the last writer wins. A lock that lasts asks the user, in
// whatever statement it is met, and Yes goes on, without a limit of attempts; No is told, and gives
// false. Nothing is held while a box stands. What fails otherwise is raised.
// What was written before the end stays written; then `alreadySaved` says it in a sentence, which
// the box adds.
bool WriteUnderLocks(Desktop& desktop, jet::Database& database, const std::function<void()>& write,
                     const std::function<std::string()>& alreadySaved = {});

// A whole save: the same, with the boxes of the other failures.
SaveEnd SaveRecord(Desktop& desktop, jet::Database& database, const std::function<void()>& save,
                   const std::function<std::string()>& alreadySaved = {});

// The same of a save that belongs together and asks nothing: a lock that lasts is one of the other
// failures.
SaveEnd SaveOnce(Desktop& desktop, const std::function<void()>& save);

// What such a box adds of a list's lines; "" where none was saved.
std::string SavedBefore(int lines, int of);
inline constexpr const char* kNothingTwice =
    "  Their quantity is 0 now, so that saving again adds nothing twice.";

// Saves the rows 1 to `count` of a list, some 100 ms of them at a time, each row whole or not at
// all. `save` may run again for a row that was taken back, and must read again what it reckons
// with. `saved` comes once for each row, as soon as it stands in the file. A row that fails ends
// the walk behind the rows before it.
void SaveRows(jet::Database& database, int count, const std::function<void(int row)>& save,
              const std::function<void(int row)>& saved);

// Runs the statements of a load one by one: one that fails is shown and passed over, so that a
// field that cannot be read leaves its control as it was.
class LoadStatements {
 public:
  explicit LoadStatements(Desktop& desktop) : desktop_(desktop) {}

  void operator()(const std::function<void()>& statement) const;

 private:
  Desktop& desktop_;
};

}  // namespace kvi
