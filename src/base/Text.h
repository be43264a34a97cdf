#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kvi {

// Text is UTF-8 everywhere; positions and lengths count characters (code points), not bytes.
// Bytes that are no UTF-8 count as one character each, so that a foreign file cannot break a rule.

std::size_t Len(std::string_view text);
std::string Left(std::string_view text, std::size_t count);
std::string Right(std::string_view text, std::size_t count);
// From the 1-based position `start`, at most `count` characters.
std::string Mid(std::string_view text, std::size_t start,
                std::size_t count = std::string_view::npos);

// Trimming takes blanks only (U+0020), as the classic functions do; tabs and line ends stay.
std::string Trim(std::string_view text);
std::string LTrim(std::string_view text);
std::string RTrim(std::string_view text);

// Case of Latin (with accents), Greek and Cyrillic letters, whatever the desk's language.
std::string UCase(std::string_view text);
std::string LCase(std::string_view text);
bool EqualsNoCase(std::string_view left, std::string_view right);

// Every occurrence of `what` replaced.
std::string Replace(std::string_view text, std::string_view what, std::string_view with);

}  // namespace kvi
