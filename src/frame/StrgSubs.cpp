#include "frame/StrgSubs.h"

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

}  // namespace kvi
