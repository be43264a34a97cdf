#pragma once

#include <cstdint>

namespace kvi::jet {

// The order of JET1: below 0, 0 or above 0. Text is equal when it is the same without regard to
// case; base letters decide over the whole text first, accents only between texts that are the same
// without them. A total order over any bytes.
int CompareJet1(const char* left, int leftBytes, const char* right, int rightBytes);

// The sort key of one character: its base letter's rank above its accent's. Equal for the two cases
// of a letter and for no other characters.
std::uint32_t Jet1Key(char32_t character);

}  // namespace kvi::jet
