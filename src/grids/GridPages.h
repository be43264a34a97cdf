#pragma once

#include <string>
#include <vector>

#include "grids/GridStrips.h"
#include "grids/PrintCodes.h"
#include "grids/PrintGrid.h"
#include "grids/TextRuler.h"

namespace kvi {

// A grid as pages on a surface: laid out when it is made, so that the number of pages is known
// before anything is drawn, then drawn page by page. The strips of one block of rows are pages that
// follow each other. Grid, print and surface outlive it.
class GridPages {
 public:
  GridPages(Surface& surface, const Spread& grid, const GridPrint& print);

  int Count() const;
  // The page of that number, from 1, on the surface's current page.
  void Draw(int page);

 private:
  void PlanHeights();
  double Usable() const;
  double TextRoom(const PrintedColumn& column) const;
  void SetFont(const PrintedText& stretch);
  double HeightOf(const std::vector<PrintedLine>& lines);
  double HeightOf(const PrintedLine& line);
  std::vector<std::string> HeadingLines(const PrintedColumn& column) const;
  std::string CellText(int row, const PrintedColumn& column, CellAlign align) const;

  void DrawLines(const std::vector<PrintedLine>& lines, double y);
  void DrawHeadings(const Strip& strip);
  void DrawRow(const Strip& strip, int row, double y);
  void DrawGrounds(const Strip& strip, const std::vector<CellFormat>& formats, double y);
  void DrawRules(const Strip& strip, int rows);

  Surface& surface_;
  const Spread& grid_;
  const GridPrint& print_;
  const int lastRow_;
  const GridStrips strips_;
  const TextRuler cells_, headings_;
  double lineHeight_ = 0, rowHeight_ = 0, headingHeight_ = 0;
  double top_ = 0, footerTop_ = 0;
  int rowsPerPage_ = 1;
};

}  // namespace kvi
