#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>

#include "platform/Surface.h"

namespace kvi {

// Measures texts in one size of Arial on a surface. Each letter is asked for once: a list of parts
// has hundreds of thousands of cells, and the surface shapes every text anew. Letters that are
// pulled together make a text narrower than told, never wider.
class TextRuler {
 public:
  TextRuler(Surface& surface, double points, bool bold);

  // The surface prints in this font from here on.
  void Apply() const;

  double Width(std::string_view text) const;
  bool Fits(std::string_view text, double width) const { return Width(text) <= width; }
  // As many characters from the start as fit.
  std::string Beginning(const std::string& text, double width) const;
  // The text, or as much of it as fits with an ellipsis behind.
  std::string Shortened(const std::string& text, double width) const;

 private:
  double WidthOf(std::string_view character) const;

  Surface& surface_;
  const double points_;
  const bool bold_;
  std::array<double, 128> plain_{};  // by ASCII code
  mutable std::map<std::string, double, std::less<>> others_;
};

}  // namespace kvi
