#pragma once

#include <cstdint>
#include <string_view>

namespace kvi {

// The one order of texts, in lists and in files, where it is the collation JET1: below 0, 0 or
// above 0. Text is equal when it is the same without regard to case; base letters decide over the
// whole text first, accents only between texts that are the same without them. A total order over
// any bytes, whatever the desk's language.
int CompareTexts(std::string_view left, std::string_view right);

// The sort key of one character: its base letter's rank above its accent's. Equal for the two cases
// of a letter and for no other characters.
std::uint32_t TextKey(char32_t character);

}  // namespace kvi
