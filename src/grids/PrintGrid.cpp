#include "grids/PrintGrid.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <vector>

#include "base/Text.h"
#include "grids/PrintCodes.h"

namespace kvi {
namespace {

constexpr double kMargin = 0.5;  // inches, on all sides
constexpr double kGap = 0.1;     // between header, grid and footer
constexpr double kPadding = 0.04;
constexpr double kFontSize = 9;  // points
constexpr double kSmallestScale = 0.7;
constexpr std::size_t kHeadingLines = 4;
constexpr double kTwipsPerInch = 1440;

struct Column {
  int col;
  double x, width;
};
// The columns that stand side by side on a page.
using Sheet = std::vector<Column>;

double RightEdge(const Sheet& sheet) {
  return sheet.empty() ? kMargin : sheet.back().x + sheet.back().width;
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

class GridPrinter {
 public:
  GridPrinter(Surface& surface, const Spread& grid, const GridPrint& print)
      : surface_(surface), grid_(grid), print_(print), lastRow_(LastRowWithText(grid)) {
    PlanSheets();
    PlanHeights();
  }

  void Draw() {
    int page = 0;
    for (const Sheet& sheet : sheets_) {
      int row = 1;
      do {
        if (page > 0) surface_.NewPage();
        DrawPage(sheet, row, std::min(row + rowsPerPage_ - 1, lastRow_), ++page);
        row += rowsPerPage_;
      } while (row <= lastRow_);
    }
  }

 private:
  double Usable() const { return surface_.PageWidth() - 2 * kMargin; }
  void SetGridFont(bool bold) {
    surface_.FontName = "Arial";
    surface_.FontSize = kFontSize * scale_;
    surface_.FontBold = bold;
  }

  void PlanSheets() {
    double total = 0;
    for (int col = 1; col <= grid_.MaxCols(); ++col) total += grid_.ColWidth(col) / kTwipsPerInch;
    if (total > Usable() && total * kSmallestScale <= Usable()) scale_ = Usable() / total;

    sheets_.emplace_back();
    for (int col = 1; col <= grid_.MaxCols(); ++col) {
      if (grid_.ColWidth(col) == 0) continue;
      const double width = std::min(grid_.ColWidth(col) / kTwipsPerInch * scale_, Usable());
      // A hair of room, or the sum of shrunk columns might miss the page by a rounding.
      if (RightEdge(sheets_.back()) + width > kMargin + Usable() + 0.001) sheets_.emplace_back();
      Sheet& sheet = sheets_.back();
      sheet.push_back({col, RightEdge(sheet), width});
    }
    for (Sheet& sheet : sheets_) UseRoom(sheet);
  }

  // What the page leaves free goes to the columns whose texts would be cut, from the left.
  void UseRoom(Sheet& sheet) {
    double room = kMargin + Usable() - RightEdge(sheet);
    double moved = 0;
    for (Column& column : sheet) {
      column.x += moved;
      if (room <= 0) continue;
      const double more = std::min(room, std::max(0.0, NeededWidth(column.col) - column.width));
      column.width += more;
      moved += more;
      room -= more;
    }
  }

  // Of the heading only its words count: it breaks between them.
  double NeededWidth(int col) {
    double width = grid_.ColWidth(col) / kTwipsPerInch * scale_;
    const auto widen = [&](const std::string& text) {
      if (!Fits(text, width - 2 * kPadding)) width = surface_.TextWidth(text) + 2 * kPadding;
    };
    SetGridFont(true);
    std::istringstream heading(grid_.Text(0, col));
    for (std::string word; heading >> word;) widen(word);
    SetGridFont(false);
    for (int row = 1; row <= lastRow_; ++row) widen(OnOneLine(grid_.Text(row, col)));
    return width;
  }

  void PlanHeights() {
    SetGridFont(true);
    std::size_t lines = 1;
    for (const Sheet& sheet : sheets_)
      for (const Column& column : sheet) lines = std::max(lines, HeadingLines(column).size());
    lineHeight_ = surface_.TextHeight();
    rowHeight_ = lineHeight_ + kPadding;
    headingHeight_ = lineHeight_ * static_cast<double>(lines) + kPadding;
    top_ = kMargin + HeightOf(ReadPrintCodes(print_.header, 1)) + kGap;
    footerTop_ = surface_.PageHeight() - kMargin - HeightOf(ReadPrintCodes(print_.footer, 1));
    const double room = footerTop_ - kGap - top_ - headingHeight_;
    rowsPerPage_ = std::max(1, static_cast<int>(room / rowHeight_));
  }

  void SetFont(const PrintedText& stretch) {
    surface_.FontName = stretch.fontName;
    surface_.FontSize = stretch.fontSize;
    surface_.FontBold = false;
  }
  double HeightOf(const PrintedLine& line) {
    double height = 0;
    for (const PrintedText& stretch : line) {
      SetFont(stretch);
      height = std::max(height, surface_.TextHeight());
    }
    return height;
  }
  double HeightOf(const std::vector<PrintedLine>& lines) {
    double height = 0;
    for (const PrintedLine& line : lines) height += HeightOf(line);
    return height;
  }

  bool Fits(const std::string& text, double width) const {
    // No glyph of the font is wider than this, and most texts are far from their column's end.
    const double widest = 1.1 * surface_.FontSize / 72;
    return static_cast<double>(text.size()) * widest <= width || surface_.TextWidth(text) <= width;
  }

  // As much of a text as fits into the width in the font that is set.
  std::string Fitted(const std::string& text, double width) const {
    if (Fits(text, width)) return text;
    std::size_t fits = 0, above = Len(text);
    while (above - fits > 1) {
      const std::size_t middle = fits + (above - fits) / 2;
      (surface_.TextWidth(Left(text, middle)) <= width ? fits : above) = middle;
    }
    return Left(text, fits);
  }

  // The figures stand at the right; half of one is another one. A number of a part or an invoice is
  // a text, and is cut like one.
  std::string FittedCell(const std::string& text, CellAlign align, double width) const {
    const bool isFigure = align == CellAlign::Right && IsNumber(text);
    if (!isFigure || Fits(text, width)) return Fitted(text, width);
    return Fitted(std::string(Len(text), '#'), width);
  }

  // Breaks between words, and a word that is wider than its column inside it.
  std::vector<std::string> HeadingLines(const Column& column) const {
    const double width = column.width - 2 * kPadding;
    std::vector<std::string> lines;
    std::string line;
    std::string rest = Trim(OnOneLine(grid_.Text(0, column.col)));
    while (!rest.empty() && lines.size() + 1 < kHeadingLines) {
      const std::string word = rest.substr(0, rest.find(' '));
      const std::string longer = line.empty() ? word : line + " " + word;
      if (Fits(longer, width)) {
        line = longer;
        rest = LTrim(rest.substr(word.size()));
      } else if (!line.empty()) {
        lines.push_back(std::exchange(line, ""));
      } else {
        lines.push_back(Fitted(word, width));
        // Narrower than one letter: nothing of it can be shown.
        if (lines.back().empty()) break;
        rest.erase(0, lines.back().size());
      }
    }
    line += (line.empty() || rest.empty() ? "" : " ") + rest;
    if (!line.empty() || lines.empty()) lines.push_back(line);
    return lines;
  }

  void DrawAligned(const std::string& shown, CellAlign align, double x, double y, double width) {
    if (shown.empty()) return;
    if (align != CellAlign::Left) {
      const double rest = width - surface_.TextWidth(shown);
      x += align == CellAlign::Right ? rest : rest / 2;
    }
    surface_.PrintAt(x, y, shown);
  }

  void DrawLines(const std::vector<PrintedLine>& lines, double y) {
    for (const PrintedLine& line : lines) {
      for (const PrintedText& stretch : line) {
        SetFont(stretch);
        DrawAligned(Fitted(stretch.text, Usable()), stretch.align, kMargin, y, Usable());
      }
      y += HeightOf(line);
    }
  }

  void DrawPage(const Sheet& sheet, int firstRow, int lastRow, int page) {
    DrawLines(ReadPrintCodes(print_.header, page), kMargin);
    if (!sheet.empty()) {
      const double rowsTop = top_ + headingHeight_;
      DrawHeadings(sheet);
      SetGridFont(false);
      for (int row = firstRow; row <= lastRow; ++row)
        DrawRow(sheet, row, rowsTop + rowHeight_ * (row - firstRow));
      DrawRules(sheet, lastRow - firstRow + 1);
    }
    DrawLines(ReadPrintCodes(print_.footer, page), footerTop_);
  }

  void DrawHeadings(const Sheet& sheet) {
    SetGridFont(true);
    surface_.FillBox(kMargin, top_, RightEdge(sheet) - kMargin, headingHeight_, kLightGrey);
    for (const Column& column : sheet) {
      double y = top_ + kPadding / 2;
      for (const std::string& line : HeadingLines(column)) {
        surface_.PrintAt(column.x + kPadding, y, Fitted(line, column.width - 2 * kPadding));
        y += lineHeight_;
      }
    }
  }

  void DrawRow(const Sheet& sheet, int row, double y) {
    std::vector<CellFormat> formats;
    for (const Column& column : sheet) formats.push_back(grid_.Format(row, column.col));
    for (std::size_t i = 0; i < sheet.size();) {
      const int color = formats[i].BackColor;
      const double x = sheet[i].x;
      double width = 0;
      for (; i < sheet.size() && formats[i].BackColor == color; ++i) width += sheet[i].width;
      if (color != kToolkitColor && color != kWhite)
        surface_.FillBox(x, y, width, rowHeight_, color);
    }
    for (std::size_t i = 0; i < sheet.size(); ++i) {
      const Column& column = sheet[i];
      const double width = column.width - 2 * kPadding;
      DrawAligned(FittedCell(OnOneLine(grid_.Text(row, column.col)), formats[i].Align, width),
                  formats[i].Align, column.x + kPadding, y + kPadding / 2, width);
    }
  }

  void DrawRules(const Sheet& sheet, int rows) {
    const double right = RightEdge(sheet);
    const double rowsTop = top_ + headingHeight_;
    const double bottom = rowsTop + rowHeight_ * rows;
    surface_.Line(kMargin, top_, right, top_);
    for (int row = 0; row <= rows; ++row)
      surface_.Line(kMargin, rowsTop + rowHeight_ * row, right, rowsTop + rowHeight_ * row);
    surface_.Line(kMargin, top_, kMargin, bottom);
    for (const Column& column : sheet)
      surface_.Line(column.x + column.width, top_, column.x + column.width, bottom);
  }

  Surface& surface_;
  const Spread& grid_;
  const GridPrint& print_;
  const int lastRow_;
  double scale_ = 1;
  std::vector<Sheet> sheets_;
  double lineHeight_ = 0, rowHeight_ = 0, headingHeight_ = 0;
  double top_ = 0, footerTop_ = 0;
  int rowsPerPage_ = 1;
};

}  // namespace

void PrintGrid(Desktop& desktop, const Spread& grid, const GridPrint& print) {
  const auto document = desktop.NewDocument(print.jobName);
  DrawGrid(*document, grid, print);
  document->EndDoc();
}

void DrawGrid(Surface& surface, const Spread& grid, const GridPrint& print) {
  GridPrinter(surface, grid, print).Draw();
}

}  // namespace kvi
