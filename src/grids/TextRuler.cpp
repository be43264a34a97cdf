#include "grids/TextRuler.h"

#include "base/Text.h"
#include "base/Utf8.h"

namespace kvi {

namespace {

constexpr std::string_view kEllipsis = "\u2026";

bool IsPlain(char character) {
  return static_cast<unsigned char>(character) < 128;
}

}  // namespace

TextRuler::TextRuler(Surface& surface, double points, bool bold)
    : surface_(surface), points_(points), bold_(bold) {
  Apply();
  // A line end or tab in a cell prints as a blank.
  for (std::size_t code = 0; code < plain_.size(); ++code)
    plain_[code] = surface_.TextWidth(std::string(1, code < ' ' ? ' ' : static_cast<char>(code)));
}

void TextRuler::Apply() const {
  surface_.FontName = "Arial";
  surface_.FontSize = points_;
  surface_.FontBold = bold_;
}

double TextRuler::WidthOf(std::string_view character) const {
  const auto found = others_.find(character);
  if (found != others_.end()) return found->second;
  Apply();
  return others_.emplace(character, surface_.TextWidth(std::string(character))).first->second;
}

double TextRuler::Width(std::string_view text) const {
  double width = 0;
  for (std::size_t at = 0; at < text.size();) {
    if (IsPlain(text[at])) {
      width += plain_[static_cast<std::size_t>(text[at++])];
      continue;
    }
    const std::size_t start = at;
    NextCharacter(text, at);
    width += WidthOf(text.substr(start, at - start));
  }
  return width;
}

std::string TextRuler::Beginning(const std::string& text, double width) const {
  std::size_t fits = 0;
  for (std::size_t at = 0; at < text.size(); fits = at) {
    const std::size_t start = at;
    NextCharacter(text, at);
    width -= Width(std::string_view(text).substr(start, at - start));
    if (width < 0) break;
  }
  return text.substr(0, fits);
}

std::string TextRuler::Shortened(const std::string& text, double width) const {
  if (Fits(text, width)) return text;
  const double room = width - Width(kEllipsis);
  return room < 0 ? "" : RTrim(Beginning(text, room)) + std::string(kEllipsis);
}

}  // namespace kvi
