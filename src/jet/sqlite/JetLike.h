#pragma once

#include <string_view>

namespace kvi::jet {

// Whether the whole text fits a pattern of Jet's: `*` any text, `?` any one character, `#` one
// digit, `[a-z]` one of a list, `[!a-z]` one not of it; the rest is itself, without regard to case.
// Raises 93 for a list without an end.
bool MatchesLike(std::string_view text, std::string_view pattern);

}  // namespace kvi::jet
