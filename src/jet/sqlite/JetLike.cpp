#include "jet/sqlite/JetLike.h"

#include <cstdint>

#include "base/RunTimeError.h"
#include "base/TextOrder.h"
#include "base/Utf8.h"

namespace kvi::jet {
namespace {

// Whether one character fits the list whose opening bracket was just read; moves the position
// behind the closing one. A minus at either end of a list stands for itself, and so does a
// lone exclamation mark.
bool FitsList(char32_t character, std::string_view pattern, std::size_t& position) {
  const std::size_t end = pattern.find(']', position);
  if (end == pattern.npos) throw RunTimeError(93, "Invalid pattern string");
  const std::string_view list = pattern.substr(0, end);
  const bool negated = position + 1 < end && list[position] == '!';
  if (negated) ++position;
  const std::uint32_t key = TextKey(character);
  bool fits = false;
  while (position < end) {
    const std::uint32_t low = TextKey(NextCharacter(list, position));
    std::uint32_t high = low;
    if (position + 1 < end && list[position] == '-') {
      ++position;
      high = TextKey(NextCharacter(list, position));
    }
    fits |= low <= key && key <= high;
  }
  position = end + 1;
  return fits != negated;
}

// Whether one character fits the next element of the pattern, which is no `*`.
bool FitsOne(char32_t character, std::string_view pattern, std::size_t& position) {
  const char32_t wanted = NextCharacter(pattern, position);
  switch (wanted) {
    case U'?':
      return true;
    case U'#':
      return character >= U'0' && character <= U'9';
    case U'[':
      return FitsList(character, pattern, position);
    default:
      return TextKey(wanted) == TextKey(character);
  }
}

// An empty list is no character at all.
bool TakeEmptyList(std::string_view pattern, std::size_t& position) {
  if (pattern.substr(position, 2) != "[]") return false;
  position += 2;
  return true;
}

}  // namespace

bool MatchesLike(std::string_view text, std::string_view pattern) {
  std::size_t at = 0;
  std::size_t wanted = 0;
  // Where the last `*` stands, and how far it reaches by now.
  std::size_t star = pattern.npos;
  std::size_t reached = 0;
  for (;;) {
    while (TakeEmptyList(pattern, wanted)) {
    }
    if (wanted < pattern.size() && pattern[wanted] == '*') {
      star = ++wanted;
      reached = at;
      continue;
    }
    if (wanted == pattern.size() && (at == text.size() || star == wanted)) return true;
    if (at < text.size() && wanted < pattern.size() &&
        FitsOne(NextCharacter(text, at), pattern, wanted))
      continue;
    if (star == pattern.npos || reached == text.size()) return false;
    NextCharacter(text, reached);
    at = reached;
    wanted = star;
  }
}

}  // namespace kvi::jet
