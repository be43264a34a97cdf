#pragma once

#include <map>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "grids/TextRuler.h"
#include "platform/Surface.h"

namespace kvi {

// Where a text stands on a line, in inches: from its left end on, or up to its right end.
struct Place {
  double x = 0;
  bool right = false;
};
constexpr Place From(double x) {
  return {x, false};
}
constexpr Place UpTo(double edge) {
  return {edge, true};
}

struct PlacedText {
  Place at;
  std::string text;
};

inline constexpr double kReportLeft = 0.3, kReportTop = 0.3;  // inches
inline constexpr double kRuleRight = 8;
inline constexpr double kBelowRule = 0.03;  // from a rule to the texts below it
inline constexpr double kPageNumberX = 7;

// A surface with the means of a report: Arial alone, lines of texts that keep out of each other's
// way, rules. The surface must outlive it.
class ReportPage {
 public:
  explicit ReportPage(Surface& paper) : paper_(paper) {}

  Surface& Paper() { return paper_; }
  void SetFont(double points, bool bold);
  double LineHeight() const { return paper_.TextHeight(); }

  // The texts of one line, from left to right, at the vertical position, which stays. A text wider
  // than the room up to its neighbour is drawn condensed into it.
  void PutLine(std::span<const PlacedText> line);
  void NextLine() { paper_.CurrentY += LineHeight(); }
  // At the left margin, and on to the next line.
  void PrintLine(const std::string& text);
  void Rule(double from = kReportLeft, double to = kRuleRight);
  // The frame's first line, at the top; the position is behind it.
  void PrintCompany(const std::string& title);

  // As much of the text's beginning as fits.
  std::string Fitting(const std::string& text, double width) const {
    return ruler_->Beginning(text, width);
  }

 private:
  double LeftEndOf(std::span<const PlacedText> line, std::size_t at) const;

  Surface& paper_;
  std::map<std::pair<double, bool>, TextRuler> rulers_;
  const TextRuler* ruler_ = nullptr;
  struct Extent {
    double left, width;
  };
  std::vector<Extent> extents_;  // of the line that is put
};

}  // namespace kvi
