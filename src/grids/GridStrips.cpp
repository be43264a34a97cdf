#include "grids/GridStrips.h"

#include <algorithm>
#include <iterator>
#include <sstream>

#include "base/Text.h"

namespace kvi {

namespace {

constexpr double kCellPadding = 0.04;
constexpr double kTwipsPerInch = 1440;
constexpr double kReadableScale = 0.8;
constexpr double kSmallestScale = 0.7;
constexpr double kLargestFigure = 1.5;  // inches; a longer one may show as "###"
constexpr int kOneOf = 50;              // texts may be longer than most
constexpr double kShareOfKept = 0.5;    // of a strip, for what stands on each

struct Wish {
  int col;
  double stored;  // in the grid
  double usual;   // needed by most of its texts
  double needed;  // by its longest text
  double least;
  double width = 0;
};

// The widths of a column's texts, the one that most do not exceed and the widest.
std::pair<double, double> TextWidths(const Spread& grid, int col, int lastRow,
                                     const TextRuler& cells) {
  std::vector<double> widths{0};
  for (int row = 1; row <= lastRow; ++row) widths.push_back(cells.Width(grid.Text(row, col)));
  const auto most = widths.end() - 1 - std::ssize(widths) / kOneOf;
  std::ranges::nth_element(widths, most);
  return {*most, *std::max_element(most, widths.end())};
}

Wish WishOf(const Spread& grid, int col, int lastRow, const TextRuler& cells,
            const TextRuler& headings) {
  double word = 0;
  // (A line may end behind a hyphen.)
  std::istringstream heading(Replace(grid.Text(0, col), "-", "- "));
  for (std::string next; heading >> next;) word = std::max(word, headings.Width(next));
  const auto [usual, widest] = TextWidths(grid, col, lastRow, cells);
  const auto padded = [&](double text) { return std::max(word, text) + 2 * kCellPadding; };
  Wish wish{.col = col, .stored = grid.ColWidth(col) / kTwipsPerInch};
  wish.usual = padded(usual);
  wish.needed = padded(widest);
  wish.least = std::max(padded(0), std::min(wish.stored, wish.usual));
  if (grid.Format(1, col).Align == CellAlign::Right)
    wish.least = std::max(wish.least, std::min(wish.needed, kLargestFigure));
  return wish;
}

double SumOf(const std::vector<Wish>& wishes, double Wish::*width) {
  double sum = 0;
  for (const Wish& wish : wishes) sum += wish.*width;
  return sum;
}

// Somewhat smaller letters rather than shortened texts; much smaller ones rather than two strips.
double ScaleOf(const std::vector<Wish>& wishes, double room) {
  const double least = SumOf(wishes, &Wish::least), usual = SumOf(wishes, &Wish::usual);
  double scale = 1;
  if (usual > room) scale = std::max(kReadableScale, room / usual);
  if (least * scale > room) scale = room / least;
  return scale;
}

// Gives room to the columns that are below their aim, in proportion to their widths in the grid,
// until each is there or nothing is left.
void ShareRoom(std::vector<Wish>& wishes, double& room, double Wish::*aim) {
  constexpr double kHair = 1e-6;
  for (;;) {
    double below = 0;
    for (const Wish& wish : wishes)
      if (wish.width < wish.*aim - kHair) below += wish.stored;
    if (below == 0 || room < kHair) return;
    const double perInch = room / below;
    for (Wish& wish : wishes) {
      if (wish.width >= wish.*aim - kHair) continue;
      const double more = std::min(perInch * wish.stored, wish.*aim - wish.width);
      wish.width += more;
      room -= more;
    }
  }
}

Strip Stripped(std::vector<Wish> wishes, double left, double width, double scale) {
  double room = width / scale - SumOf(wishes, &Wish::least);
  for (Wish& wish : wishes) wish.width = wish.least;
  ShareRoom(wishes, room, &Wish::usual);
  ShareRoom(wishes, room, &Wish::needed);
  ShareRoom(wishes, room, &Wish::stored);
  Strip strip;
  for (const Wish& wish : wishes) {
    strip.push_back({wish.col, left, wish.width * scale});
    left += strip.back().width;
  }
  return strip;
}

// What stands on each strip: by it a row is known, so most of its texts are whole where that leaves
// room for the others.
std::vector<Wish> TakeKept(std::vector<Wish>& wishes, const std::vector<int>& keptCols,
                           double room) {
  std::vector<Wish> kept;
  const auto isKept = [&](const Wish& wish) { return std::ranges::count(keptCols, wish.col) > 0; };
  std::ranges::copy_if(wishes, std::back_inserter(kept), isKept);
  std::erase_if(wishes, isKept);
  for (Wish& wish : kept) wish.least = wish.usual;
  const double least = SumOf(kept, &Wish::least), most = room * kShareOfKept;
  if (least > most)
    for (Wish& wish : kept) wish.least *= most / least;
  return kept;
}

}  // namespace

GridStrips LayOutStrips(const Spread& grid, int lastRow, double left, double room,
                        const TextRuler& cells, const TextRuler& headings) {
  std::vector<Wish> wishes;
  for (int col = 1; col <= grid.MaxCols(); ++col)
    if (grid.ColWidth(col) > 0) wishes.push_back(WishOf(grid, col, lastRow, cells, headings));

  GridStrips result{.padding = kCellPadding};
  if (const double scale = ScaleOf(wishes, room); scale >= kSmallestScale) {
    result.scale = scale;
    result.padding = kCellPadding * scale;
    result.strips.push_back(Stripped(wishes, left, room, scale));
    return result;
  }
  const std::vector<Wish> kept = TakeKept(wishes, grid.KeptCols, room);
  if (wishes.empty()) result.strips.push_back(Stripped(kept, left, room, 1));
  const double free = room - SumOf(kept, &Wish::least);
  for (auto next = wishes.begin(); next != wishes.end();) {
    std::vector<Wish> strip = kept;
    double unused = free;
    do {
      next->least = std::min(next->least, free);
      unused -= next->least;
      strip.push_back(*next++);
    } while (next != wishes.end() && next->least <= unused);
    std::ranges::sort(strip, {}, &Wish::col);
    result.strips.push_back(Stripped(std::move(strip), left, room, 1));
  }
  return result;
}

}  // namespace kvi
