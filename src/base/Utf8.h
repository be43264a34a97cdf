#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kvi {

// Reads the character at `position` and moves it on. A byte that starts no well-formed sequence
// yields 0xDC00 + byte, so that distinct bad bytes stay distinct.
char32_t NextCharacter(std::string_view text, std::size_t& position);
void AppendCharacter(std::string& text, char32_t character);

// Simple case mapping of one character, by a table of ours (see CaseTable.cpp).
char32_t ToUpper(char32_t character);
char32_t ToLower(char32_t character);

}  // namespace kvi
