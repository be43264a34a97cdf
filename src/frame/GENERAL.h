#pragma once

#include <string>

#include "jet/Database.h"
#include "platform/Clock.h"

namespace kvi {

class ListBox;

// Today as "yymmdd" and the time as "hhmmss", joined: 12 digits.
std::string MakeTimeStamp(const Clock& clock);

// False for a blank path, a missing or unreadable file, and an empty one.
bool FileHasContent(const std::string& path);

// The next free numeric part number: the highest by Val plus 1, "1" on an empty table. A number of
// letters counts as 0; the base record 999999 makes the next one 1000000.
std::string NextInvId(jet::Database& database);

// What a stored yield counts as, in percent: 100 for one of 0 or below.
inline constexpr double kWholeYield = 100;
double YieldOf(const Value& stored);

// The part's yield in percent; 100 for a missing part and for a yield of 0 or below.
double GetItemYield(jet::Database& database, const std::string& inv_id);

// The part's cost per purchased unit; 0 for a missing part and on any error.
double GetItemCostPer(jet::Database& database, const std::string& inv_id);

// Adds the names of the part groups that use a part, by name, each once.
void ListPartGroupsOfItem(jet::Database& database, ListBox& list, const std::string& inv_id);

}  // namespace kvi
