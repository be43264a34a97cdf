#include "jet/KeyedRows.h"

#include "base/Utf8.h"
#include "jet/dialect/JetTokens.h"
#include "jet/functions/JetCollation.h"

namespace kvi::jet {

std::size_t TextHash::operator()(std::string_view text) const {
  std::size_t hash = 0;
  for (std::size_t i = 0; i < text.size();) hash = hash * 31 + Jet1Key(NextCharacter(text, i));
  return hash;
}

bool TextEqual::operator()(std::string_view left, std::string_view right) const {
  return CompareJet1(left.data(), static_cast<int>(left.size()), right.data(),
                     static_cast<int>(right.size())) == 0;
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
