#pragma once

#include <string>
#include <string_view>

namespace kvi {

// Keys and names go into statements as they stand, so these characters are kept out on entry.
std::string StripQuotes(std::string_view text);      // takes every ' and " out
std::string StripAmpersands(std::string_view text);  // takes every & out

// Stands behind the number and the name of a copy.
inline constexpr const char* kDuplicateMark = " DUP";
// Whether a name is a copy's. One that ends in "DUP" by itself counts too.
bool IsNamedDuplicate(const std::string& name);

}  // namespace kvi
