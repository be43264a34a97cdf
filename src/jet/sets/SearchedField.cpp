#include "jet/sets/SearchedField.h"

#include "base/RunTimeError.h"
#include "jet/dialect/JetTokens.h"

namespace kvi::jet {

std::optional<FieldSearch> FieldSearchOf(std::string_view criterion) {
  try {
    JetTokens tokens(criterion);
    if (!tokens.Peek().IsFreeName()) return std::nullopt;
    const JetToken field = tokens.Take();
    if (!tokens.TakeSymbolIf("=") || tokens.Peek().kind != JetToken::Kind::Text)
      return std::nullopt;
    FieldSearch search{std::string(field.text), tokens.Take().Content()};
    if (tokens.Peek().kind != JetToken::Kind::End) return std::nullopt;
    return search;
  } catch (const RunTimeError&) {
    return std::nullopt;  // whoever translates the criterion tells what is wrong
  }
}

}  // namespace kvi::jet
