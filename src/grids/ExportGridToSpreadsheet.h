#pragma once

#include <string>

#include "platform/Desktop.h"
#include "platform/Spread.h"

namespace kvi {

// Writes the grid with its headings as tab-separated text to temp.xls in the program's folder,
// replacing what is there, and starts the spreadsheet program on it without waiting. The file bears
// a workbook's extension; spreadsheet programs open such a text as one. Reports its failures
// itself.
void ExportGridToSpreadsheet(const Spread& grid, const std::string& spreadsheetPath,
                             const std::string& programFolder, Desktop& desktop);

}  // namespace kvi
