#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace kvi {

// A table as a workbook gets it. A figure is a number as it shows ("$1,234.50") and comes back as
// that number under such a mask; a date likewise. What is neither, and every text, stays the text
// it is: "00123", "1E5" and "=1+1" too.
struct WorkbookTable {
  enum class Kind { Text, Figure, Date };
  struct Column {
    std::string heading;
    double width = 1200;  // twips
  };
  struct Cell {
    std::string text;
    Kind kind = Kind::Text;
  };

  std::vector<Column> columns;
  int rows = 0;
  std::function<Cell(int row, std::size_t column)> cell;  // from 0 on, asked for in reading order
  int keptColumns = 0;                                    // the first ones stay in view
};

// Writes the table as a workbook (.xlsx) of one sheet, with its headings in view and repeated on
// each page, over what has the name. Raises 75 where it cannot be written; the old file then stays.
void WriteWorkbook(const std::string& path, const std::string& sheet, const WorkbookTable& table);

}  // namespace kvi
