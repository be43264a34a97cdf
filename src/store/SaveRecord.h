#pragma once

#include <functional>

#include "platform/Desktop.h"

namespace kvi {

enum class SaveEnd {
  Saved,
  GivenUp,    // another user's lock lasted and the user said No; nothing of the failed row written
  Duplicate,  // the key stands already
  Failed,
};

// Runs the statements of a save one by one: the one place of the rules of recovery. What was
// written before a failure stays written.
class SaveStatements {
 public:
  explicit SaveStatements(Desktop& desktop) : desktop_(desktop) {}

  // Runs one statement. Data that changed under the edit (3197) is passed over: the write goes on,
  // and the last writer wins. A lock asks the user, and Yes runs the statement again, without a
  // limit. Anything else leaves the save.
  void operator()(const std::function<void()>& statement);

 private:
  Desktop& desktop_;
};

// A whole save with the boxes of its ends.
SaveEnd SaveRecord(Desktop& desktop, const std::function<void(SaveStatements&)>& save);

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
