#include "jet/KeyedRows.h"

#include "base/TextOrder.h"
#include "base/Utf8.h"
#include "jet/dialect/JetTokens.h"

namespace kvi::jet {

std::size_t TextHash::operator()(std::string_view text) const {
  std::size_t hash = 0;
  for (std::size_t i = 0; i < text.size();) hash = hash * 31 + TextKey(NextCharacter(text, i));
  return hash;
}

bool TextEqual::operator()(std::string_view left, std::string_view right) const {
  return CompareTexts(left, right) == 0;
}

std::string_view JoinedKey(std::string_view key, std::string& unquoted) {
  if (key.find('\'') == key.npos) return key;
  const std::string literal = "'" + std::string(key) + "'";
  JetTokens tokens(literal);
  unquoted = tokens.Take().Content();
  if (tokens.Peek().kind != JetToken::Kind::End) tokens.Fail();
  return unquoted;
}

}  // namespace kvi::jet
