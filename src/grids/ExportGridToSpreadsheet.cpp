#include "grids/ExportGridToSpreadsheet.h"

#include <filesystem>
#include <fstream>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "frame/GENERAL.h"
#include "platform/Hourglass.h"

namespace kvi {
namespace {

constexpr const char* kTitle = "Export";

std::string LineOf(const Spread& grid, int row) {
  std::string line;
  for (int col = 1; col <= grid.MaxCols(); ++col) line += Trim(grid.Text(row, col)) + "\t";
  if (!line.empty()) line.pop_back();
  return line;
}

void WriteFile(const Spread& grid, const std::string& path) {
  std::ofstream file(path, std::ios::trunc);
  if (!file) throw RunTimeError(75);
  for (int row = 0; row <= grid.MaxRows(); ++row) file << LineOf(grid, row) << '\n';
  file.close();
  if (!file) throw RunTimeError(61);
}

}  // namespace

void ExportGridToSpreadsheet(const Spread& grid, const std::string& spreadsheetPath,
                             const std::string& programFolder, Desktop& desktop) {
  if (Trim(spreadsheetPath).empty()) {
    desktop.MsgBox(
        {"The spreadsheet program has not been entered. Use UTILITIES/PREFERENCES screen to set "
         "the path and file name."});
    return;
  }
  if (!FileHasContent(spreadsheetPath)) {
    desktop.MsgBox(
        {"The spreadsheet program is not at the location specified in the UTILITIES/PREFERENCES "
         "screen."});
    return;
  }
  if (grid.MaxRows() == 0) {
    desktop.MsgBox({"Nothing to export", kTitle});
    return;
  }

  const std::string fileName = (std::filesystem::path(programFolder) / "temp.xls").string();
  try {
    {
      const Hourglass busy(desktop);
      WriteFile(grid, fileName);
    }
    // The data file alone is quoted: the program's path goes out as it was entered, though one with
    // blanks in it may not start.
    desktop.StartProgram(spreadsheetPath + " \"" + fileName + "\"");
  } catch (const RunTimeError& error) {
    if (error.Number == 53)
      desktop.MsgBox(
          {"Microsoft Excel was not installed at the normal default location. "
           "The file is called " +
               fileName + " can be loaded into Excel manually.",
           kTitle});
    else
      desktop.MsgBox(
          {"An error has occurred.  (" + Str(error.Number) + " - " + error.Description + ")",
           kTitle});
  }
}

}  // namespace kvi
