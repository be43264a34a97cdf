#include "base/Text.h"

#include <algorithm>

#include "base/RunTimeError.h"
#include "base/Utf8.h"

namespace kvi {
namespace {

// The byte position behind the first `count` characters.
std::size_t Skip(std::string_view text, std::size_t count) {
  std::size_t position = 0;
  while (count-- > 0 && position < text.size()) NextCharacter(text, position);
  return position;
}

std::string Mapped(std::string_view text, char32_t (*map)(char32_t)) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size();)
    AppendCharacter(result, map(NextCharacter(text, position)));
  return result;
}

std::string_view WithoutLeading(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

std::string_view WithoutTrailing(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

}  // namespace

std::size_t Len(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t position = 0; position < text.size(); ++count) NextCharacter(text, position);
  return count;
}

std::string Left(std::string_view text, std::size_t count) {
  return std::string(text.substr(0, Skip(text, count)));
}

std::string Right(std::string_view text, std::size_t count) {
  const std::size_t length = Len(text);
  return std::string(text.substr(count < length ? Skip(text, length - count) : 0));
}

std::string Mid(std::string_view text, std::size_t start, std::size_t count) {
  if (start == 0) throw RunTimeError(5);
  return Left(text.substr(Skip(text, start - 1)), count);
}

std::string Trim(std::string_view text) {
  return std::string(WithoutTrailing(WithoutLeading(text)));
}
std::string LTrim(std::string_view text) {
  return std::string(WithoutLeading(text));
}
std::string RTrim(std::string_view text) {
  return std::string(WithoutTrailing(text));
}

std::string UCase(std::string_view text) {
  return Mapped(text, ToUpper);
}
std::string LCase(std::string_view text) {
  return Mapped(text, ToLower);
}

bool EqualsNoCase(std::string_view left, std::string_view right) {
  std::size_t leftAt = 0, rightAt = 0;
  while (leftAt < left.size() && rightAt < right.size()) {
    if (ToUpper(NextCharacter(left, leftAt)) != ToUpper(NextCharacter(right, rightAt)))
      return false;
  }
  return leftAt == left.size() && rightAt == right.size();
}

std::string Replace(std::string_view text, std::string_view what, std::string_view with) {
  if (what.empty()) return std::string(text);
  std::string result;
  std::size_t position = 0;
  for (std::size_t found; (found = text.find(what, position)) != std::string_view::npos;) {
    result.append(text, position, found - position).append(with);
    position = found + what.size();
  }
  return result.append(text, position);
}

}  // namespace kvi
