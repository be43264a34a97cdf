#include "grids/SprdSubs.h"

#include <algorithm>
#include <string>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "frame/BulkWalk.h"
#include "grids/PaintingOff.h"

namespace kvi {
namespace {

constexpr double kNarrowestKept = 150;  // twips
constexpr double kResetWidth = 1500;

struct WidthTable {
  const char* screen;
  const char* table;
};
// In the order of the reset.
constexpr WidthTable kWidthTables[] = {{"KVI_INVENTORYSUMMARY", "CW_Inventory"},
                                       {"KVI_PGSUMMARY", "CW_Recipes"},
                                       {"KVI_ORDERSYSTEM", "CW_Orders"}};

jet::Recordset OpenWidths(jet::Database& database, const std::string& table) {
  return database.OpenRecordset("SELECT * FROM " + table + " ORDER BY Ordinal;");
}

std::string WidthTableOf(const Screen& screen) {
  const std::string name = UCase(Trim(screen.Name()));
  for (const WidthTable& entry : kWidthTables)
    if (name == entry.screen) return entry.table;
  return "";
}

// A column that the grid has; 0 for an ordinal of another edition's wider grid.
int GridColumn(const Spread& grid, const jet::Recordset& widths) {
  const double ordinal = widths.Number("Ordinal");
  return ordinal >= 1 && ordinal <= grid.MaxCols() ? static_cast<int>(ordinal) : 0;
}

RowEnd SetWidth(jet::Recordset& widths, double width) {
  widths.Set("ColWidth", width);
  return RowEnd::Write;
}

}  // namespace

void ClearGrid(Spread& grid) {
  grid.Row = 1;
  grid.Col = 1;
  grid.ClearText(Block::All());
}

void GoToFirstCell(Spread& grid) {
  GoToCell(grid, 1, 1);
}

void GoToRow(Spread& grid, int row) {
  GoToCell(grid, row, 1);
}

void GoToCell(Spread& grid, int row, int col) {
  grid.GoToCell(row, col);
}

bool TakesFirstLetter(const std::string& heading) {
  constexpr const char* kHeadings[] = {"Name",     "Category", "Description",
                                       "Location", "#",        "Account #"};
  return std::ranges::count(kHeadings, heading) > 0;
}

void GoToFirstLetter(Spread& grid, int column, const std::string& key) {
  const std::string letter = UCase(key);
  for (int row = 1; row <= grid.MaxRows(); ++row) {
    const std::string& cell = grid.Text(row, column);
    if (!Trim(cell).empty() && UCase(Left(cell, 1)) == letter)
      return GoToCell(grid, row, grid.ActiveCol());
  }
}

void ShowGridPosition(const Spread& grid, StatusBar& bar) {
  bar.SetPanelText(1, Str(grid.ActiveRow()) + " of " + Str(grid.MaxRows()) + " records");
}

std::string CountOf(int count, const std::string& thing) {
  return Str(count) + " " + thing + (count == 1 ? "" : "s");
}

std::string NotSaved(int typedRows, const std::string& typed) {
  if (typedRows == 0) return "";
  return CountOf(typedRows, "typed " + typed) + (typedRows == 1 ? " was" : " were") + " not saved.";
}

void ShowGridRow(const Spread& grid, StatusBar& bar, const std::vector<int>& told,
                 const std::string& typed) {
  ShowGridPosition(grid, bar);
  std::string text;
  const auto add = [&](const std::string& piece, const char* separator) {
    if (piece.empty()) return;
    if (!text.empty()) text += separator;
    text += piece;
  };
  if (grid.TypedRows() > 0) add(CountOf(grid.TypedRows(), typed) + " not saved", "");
  const char* separator = text.empty() ? "" : "   |   ";
  // (Row 0 holds the headings.)
  for (const int col : grid.ActiveRow() > 0 ? told : std::vector<int>()) {
    add(Trim(grid.Text(grid.ActiveRow(), col)), separator);
    separator = "  -  ";
  }
  bar.SetPanelText(2, text);
}

void LockGrid(Spread& grid) {
  grid.SetLock(Block::All(), true);
}

std::unique_ptr<Progress> ReadingList(const Spread& grid, Desktop& desktop, int count) {
  auto progress = desktop.NewProgress(grid.Owner().Caption(), false);
  progress->Begin("Reading the list", count);
  return progress;
}

void ShadeGridRows(Spread& grid, bool useColors) {
  const PaintingOff hidden(grid);
  for (int row = 1; row <= grid.MaxRows(); ++row)
    grid.SetBackColor(Block::Row(row), useColors && row % 2 == 0 ? kLightGrey : kWhite);
  grid.Row = std::max(grid.ActiveRow(), 1);
}

void LoadColumnWidths(Spread& grid, const Screen& screen, jet::Database& database) {
  const std::string table = WidthTableOf(screen);
  if (table.empty()) return;
  for (auto widths = OpenWidths(database, table); !widths.Eof(); widths.MoveNext())
    if (const int col = GridColumn(grid, widths); col > 0)
      grid.SetColWidth(col, widths.Number("ColWidth"));
}

void SaveColumnWidths(const Spread& grid, const Screen& screen, jet::Database& database) {
  const std::string table = WidthTableOf(screen);
  if (table.empty()) return;
  auto widths = OpenWidths(database, table);
  WalkAndChange(database, widths, [&](jet::Recordset& row) {
    const int col = GridColumn(grid, row);
    return col > 0 ? SetWidth(row, std::max(grid.ColWidth(col), kNarrowestKept)) : RowEnd::Leave;
  });
}

void SaveColumnWidths(const Spread& grid, const Screen& screen, jet::Database& database,
                      Desktop& desktop) {
  try {
    SaveColumnWidths(grid, screen, database);
  } catch (const RunTimeError& error) {
    desktop.MsgBox({.text = Str(error.Number) + " " + error.Description, .icon = Icon::Error});
  }
}

bool ResetColumnWidths(jet::Database& database) {
  for (const WidthTable& entry : kWidthTables) {
    auto widths = OpenWidths(database, entry.table);
    // The walk goes on from table to table only while there are rows.
    if (widths.Eof()) return false;
    WalkAndChange(database, widths, [](jet::Recordset& row) { return SetWidth(row, kResetWidth); });
  }
  return true;
}

}  // namespace kvi
