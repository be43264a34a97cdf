#include "TextPages.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <tuple>
#include <utility>

#include "base/Text.h"

namespace kvi {

namespace {

// A digit of the smallest common rows is as wide as a column.
constexpr double kColumnsPerInch = 20;
constexpr double kLinesPerInch = 100;

long LineOf(const PageMark& mark) {
  return std::lround(mark.y * kLinesPerInch);
}

bool IsFigure(const std::string& text) {
  return text.find_first_not_of("$-0123456789,.") == std::string::npos;
}

}  // namespace

void TextPages::Sheets::Draw(const PageMark& mark) {
  if (mark.kind == PageMark::Kind::Text) marks_.push_back(mark);
}

std::size_t TextPages::Sheets::ColumnOf(const PageMark& mark) const {
  const double width = mark.room > 0 ? mark.room : measure_.Width(mark.font, mark.text);
  double column = mark.x * kColumnsPerInch;
  if (IsFigure(mark.text)) column += width * kColumnsPerInch - static_cast<double>(Len(mark.text));
  return static_cast<std::size_t>(std::max(0L, std::lround(column)));
}

void TextPages::Sheets::EndDoc() {
  std::ranges::stable_sort(marks_, {},
                           [](const PageMark& mark) { return std::tuple(LineOf(mark), mark.x); });
  std::string page = std::exchange(first_, false) ? "" : "\f";
  std::string line;
  const PageMark* before = nullptr;
  for (const PageMark& mark : marks_) {
    if (before != nullptr && LineOf(*before) != LineOf(mark))
      page += std::exchange(line, "") + "\n";
    const std::size_t column = ColumnOf(mark), length = Len(line);
    if (length < column)
      line.append(column - length, ' ');
    else if (length > 0)
      line += ' ';
    line += mark.text;
    before = &mark;
  }
  std::printf("%s%s\n", page.c_str(), line.c_str());
  marks_.clear();
}

}  // namespace kvi
