#pragma once

#include <string>
#include <vector>

#include "base/Value.h"

namespace kvi {

class Application;

// What Utilities does to all parts, part groups or purchases at once, once its questions are
// answered. A lock that lasts asks the user. A walk that fails is told and keeps the rows before
// the failure, so that it can be run again; a removal is done whole or not at all.

struct FieldValue {
  std::string field;
  Value value;
};

// Writes the fields in every part of ItemSet that holds others; one that holds these already is not
// touched. False when the walk did not come to its end.
[[nodiscard]] bool SetInAllParts(Application& app, const std::vector<FieldValue>& fields);

// Gives the part lines of every part group, in any profit center, the name and the description that
// their parts have now. A line whose part is gone stays. False as above.
[[nodiscard]] bool UpdatePartGroupItems(Application& app);

// Runs action statements that belong together. False when the user would not wait for a lock;
// raises what fails otherwise, with nothing written.
[[nodiscard]] bool RunTogether(Application& app, const std::vector<std::string>& statements);

}  // namespace kvi
