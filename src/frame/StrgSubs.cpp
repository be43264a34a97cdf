#include "frame/StrgSubs.h"

#include "base/Text.h"

namespace kvi {

std::string StripQuotes(std::string_view text) {
  std::string kept(text);
  std::erase_if(kept, [](char c) { return c == '\'' || c == '"'; });
  return kept;
}

std::string StripAmpersands(std::string_view text) {
  std::string kept(text);
  std::erase(kept, '&');
  return kept;
}

bool IsNamedDuplicate(const std::string& name) {
  return Trim(Right(name, 3)) == "DUP";
}

}  // namespace kvi
