#include "grids/GridPages.h"

#include <algorithm>

#include "base/Text.h"
#include "grids/WrapText.h"

namespace kvi {

namespace {

constexpr double kMargin = 0.5;     // inches, on all sides
constexpr double kGap = 0.1;        // between header, grid and footer
constexpr double kFontSize = 9;     // points
constexpr double kBarWidth = 0.03;  // of the mark of a warning

double RightEdge(const Strip& strip) {
  return strip.empty() ? kMargin : strip.back().x + strip.back().width;
}

bool IsNumber(const std::string& text) {
  return text.find_first_not_of("0123456789.,-+$% ") == std::string::npos &&
         text.find_first_of("0123456789") != std::string::npos;
}

std::string OnOneLine(std::string text) {
  std::ranges::replace_if(
      text, [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
  return text;
}

int LastRowWithText(const Spread& grid) {
  for (int row = grid.MaxRows(); row > 0; --row)
    for (int col = 1; col <= grid.MaxCols(); ++col)
      if (!grid.Text(row, col).empty()) return row;
  return 0;
}

// Where a text of a width begins in its room.
double AlignedX(CellAlign align, double x, double room, double width) {
  if (align == CellAlign::Left) return x;
  return x + (align == CellAlign::Right ? room - width : (room - width) / 2);
}

GridStrips Strips(Surface& surface, const Spread& grid, int lastRow) {
  return LayOutStrips(grid, lastRow, kMargin, surface.PageWidth() - 2 * kMargin,
                      TextRuler(surface, kFontSize, false), TextRuler(surface, kFontSize, true));
}

}  // namespace

GridPages::GridPages(Surface& surface, const Spread& grid, const GridPrint& print)
    : surface_(surface),
      grid_(grid),
      print_(print),
      lastRow_(LastRowWithText(grid)),
      strips_(Strips(surface, grid, lastRow_)),
      cells_(surface, kFontSize * strips_.scale, false),
      headings_(surface, kFontSize * strips_.scale, true) {
  PlanHeights();
}

double GridPages::Usable() const {
  return surface_.PageWidth() - 2 * kMargin;
}

// A hair more, or the sum of shrunk columns might miss a text by a rounding.
double GridPages::TextRoom(const PrintedColumn& column) const {
  return column.width - 2 * strips_.padding + 1e-6;
}

int GridPages::Count() const {
  const int blocks = std::max(1, (lastRow_ + rowsPerPage_ - 1) / rowsPerPage_);
  return blocks * static_cast<int>(strips_.strips.size());
}

void GridPages::PlanHeights() {
  std::size_t lines = 1;
  for (const Strip& strip : strips_.strips)
    for (const PrintedColumn& column : strip) lines = std::max(lines, HeadingLines(column).size());
  headings_.Apply();
  lineHeight_ = surface_.TextHeight();
  rowHeight_ = lineHeight_ + strips_.padding;
  headingHeight_ = lineHeight_ * static_cast<double>(lines) + strips_.padding;
  top_ = kMargin + HeightOf(ReadPrintCodes(print_.header, 1)) + kGap;
  footerTop_ = surface_.PageHeight() - kMargin - HeightOf(ReadPrintCodes(print_.footer, 1));
  const double room = footerTop_ - kGap - top_ - headingHeight_;
  rowsPerPage_ = std::max(1, static_cast<int>(room / rowHeight_));
}

void GridPages::SetFont(const PrintedText& stretch) {
  surface_.FontName = stretch.fontName;
  surface_.FontSize = stretch.fontSize;
  surface_.FontBold = false;
}

double GridPages::HeightOf(const PrintedLine& line) {
  double height = 0;
  for (const PrintedText& stretch : line) {
    SetFont(stretch);
    height = std::max(height, surface_.TextHeight());
  }
  return height;
}

double GridPages::HeightOf(const std::vector<PrintedLine>& lines) {
  double height = 0;
  for (const PrintedLine& line : lines) height += HeightOf(line);
  return height;
}

std::vector<std::string> GridPages::HeadingLines(const PrintedColumn& column) const {
  headings_.Apply();
  return WrapText(surface_, Trim(OnOneLine(grid_.Text(0, column.col))), TextRoom(column));
}

// Half of a figure is another one. A number of a part or an invoice stands at the left: it is a
// text, and is cut like one.
std::string GridPages::CellText(int row, const PrintedColumn& column, CellAlign align) const {
  const double room = TextRoom(column);
  const std::string text = OnOneLine(grid_.Text(row, column.col));
  if (align != CellAlign::Right || !IsNumber(text) || cells_.Fits(text, room))
    return cells_.Shortened(text, room);
  return cells_.Beginning(std::string(text.size(), '#'), room);
}

void GridPages::Draw(int page) {
  const auto strips = static_cast<int>(strips_.strips.size());
  const Strip& strip = strips_.strips[static_cast<std::size_t>((page - 1) % strips)];
  const int first = (page - 1) / strips * rowsPerPage_ + 1;
  const int last = std::min(first + rowsPerPage_ - 1, lastRow_);
  DrawLines(ReadPrintCodes(print_.header, page), kMargin);
  if (!strip.empty()) {
    DrawHeadings(strip);
    cells_.Apply();
    for (int row = first; row <= last; ++row)
      DrawRow(strip, row, top_ + headingHeight_ + rowHeight_ * (row - first));
    DrawRules(strip, last - first + 1);
  }
  DrawLines(ReadPrintCodes(print_.footer, page), footerTop_);
}

void GridPages::DrawLines(const std::vector<PrintedLine>& lines, double y) {
  for (const PrintedLine& line : lines) {
    for (const PrintedText& stretch : line) {
      SetFont(stretch);
      const double width = surface_.TextWidth(stretch.text);
      // Of a title that is wider than the page the beginning shows.
      const double x = std::max(kMargin, AlignedX(stretch.align, kMargin, Usable(), width));
      surface_.Put(x, y, stretch.text);
    }
    y += HeightOf(line);
  }
}

void GridPages::DrawHeadings(const Strip& strip) {
  headings_.Apply();
  surface_.FillBox(kMargin, top_, RightEdge(strip) - kMargin, headingHeight_, kLightGrey);
  for (const PrintedColumn& column : strip) {
    double y = top_ + strips_.padding / 2;
    for (const std::string& line : HeadingLines(column)) {
      surface_.Put(column.x + strips_.padding, y, line);
      y += lineHeight_;
    }
  }
}

void GridPages::DrawRow(const Strip& strip, int row, double y) {
  std::vector<CellFormat> formats;
  for (const PrintedColumn& column : strip) formats.push_back(grid_.Format(row, column.col));
  DrawGrounds(strip, formats, y);
  for (std::size_t i = 0; i < strip.size(); ++i) {
    const std::string text = CellText(row, strip[i], formats[i].Align);
    if (text.empty()) continue;
    const double x = formats[i].Align == CellAlign::Left
                         ? strip[i].x + strips_.padding
                         : AlignedX(formats[i].Align, strip[i].x + strips_.padding,
                                    TextRoom(strip[i]), cells_.Width(text));
    surface_.Put(x, y + strips_.padding / 2, text);
  }
}

// A warning's colour is hardly seen on a printer without colours: it has a bar as well.
void GridPages::DrawGrounds(const Strip& strip, const std::vector<CellFormat>& formats, double y) {
  for (std::size_t i = 0; i < strip.size();) {
    const int color = formats[i].BackColor;
    const double x = strip[i].x;
    double width = 0;
    for (; i < strip.size() && formats[i].BackColor == color; ++i) width += strip[i].width;
    if (color != kToolkitColor && color != kWhite) surface_.FillBox(x, y, width, rowHeight_, color);
  }
  for (std::size_t i = 0; i < strip.size(); ++i)
    if (formats[i].BackColor == kBrightRed)
      surface_.FillBox(strip[i].x, y, kBarWidth, rowHeight_, kBlack);
}

void GridPages::DrawRules(const Strip& strip, int rows) {
  const double right = RightEdge(strip);
  const double rowsTop = top_ + headingHeight_;
  const double bottom = rowsTop + rowHeight_ * rows;
  surface_.Line(kMargin, top_, right, top_);
  for (int row = 0; row <= rows; ++row)
    surface_.Line(kMargin, rowsTop + rowHeight_ * row, right, rowsTop + rowHeight_ * row);
  surface_.Line(kMargin, top_, kMargin, bottom);
  for (const PrintedColumn& column : strip)
    surface_.Line(column.x + column.width, top_, column.x + column.width, bottom);
}

}  // namespace kvi
