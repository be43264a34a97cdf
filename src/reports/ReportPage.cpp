#include "reports/ReportPage.h"

#include <algorithm>

namespace kvi {

namespace {

constexpr double kGap = 0.05;         // inches between two texts
constexpr double kPaperRight = 8.25;  // where the last text of a line ends at most
constexpr double kTitleSize = 12;     // points

}  // namespace

void ReportPage::SetFont(double points, bool bold) {
  const auto found = rulers_.find({points, bold});
  ruler_ = found != rulers_.end()
               ? &found->second
               : &rulers_.try_emplace({points, bold}, paper_, points, bold).first->second;
  ruler_->Apply();
}

// Of a text that ends at its edge. It keeps to the column before where that ends at one too; else
// it takes what is free, and half of what both have in any case.
double ReportPage::LeftEndOf(std::span<const PlacedText> line, std::size_t at) const {
  const PlacedText& text = line[at];
  if (!text.at.right) return text.at.x;
  double leftmost = kReportLeft;
  if (at > 0) {
    const PlacedText& before = line[at - 1];
    const double middle = (before.at.x + text.at.x) / 2;
    const double free = before.at.x + (before.at.right ? 0 : extents_[at - 1].width) + kGap;
    leftmost = before.at.right ? free : std::min(free, middle);
  }
  return text.at.x - std::min(extents_[at].width, text.at.x - leftmost);
}

void ReportPage::PutLine(std::span<const PlacedText> line) {
  extents_.resize(line.size());
  for (std::size_t at = 0; at < line.size(); ++at) {
    extents_[at].width = ruler_->Width(line[at].text);
    extents_[at].left = LeftEndOf(line, at);
  }
  for (std::size_t at = 0; at < line.size(); ++at) {
    const PlacedText& text = line[at];
    const auto [left, width] = extents_[at];
    double right = text.at.x;
    if (!text.at.right) right = at + 1 < line.size() ? extents_[at + 1].left - kGap : kPaperRight;
    const bool fits = width <= right - left + 1e-9;
    paper_.Put(left, paper_.CurrentY, text.text, fits ? 0 : right - left);
  }
}

void ReportPage::PrintLine(const std::string& text) {
  const PlacedText line{From(kReportLeft), text};
  PutLine({&line, 1});
  NextLine();
}

void ReportPage::Rule(double from, double to) {
  paper_.Line(from, paper_.CurrentY, to, paper_.CurrentY);
}

void ReportPage::PrintCompany(const std::string& title) {
  SetFont(kTitleSize, true);
  paper_.CurrentY = kReportTop;
  const PlacedText line[] = {{From(kReportLeft), title}, {From(kPageNumberX), ""}};
  PutLine(line);
  NextLine();
}

}  // namespace kvi
