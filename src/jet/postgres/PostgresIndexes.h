#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "jet/TableDef.h"

namespace kvi::jet {

// A table's indexes as one text, in which the server keeps them: a file that the content goes back
// to gets the same ones. A line each, a mark before a unique one, tabs between the columns.
std::string IndexesAsText(const std::vector<IndexDef>& indexes);
std::vector<IndexDef> IndexesOfText(std::string_view text);
// The index that a statement of SQLite's makes.
IndexDef IndexOfSql(std::string_view sql);

}  // namespace kvi::jet
