#pragma once

#include <string>
#include <string_view>

namespace kvi {

// Keys and names go into statements as they stand, so these characters are kept out on entry.
std::string StripQuotes(std::string_view text);      // takes every ' and " out
std::string StripAmpersands(std::string_view text);  // takes every & out

}  // namespace kvi
