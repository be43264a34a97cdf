#include "grids/WorkbookItem.h"

#include <algorithm>
#include <utility>

#include "base/Format.h"
#include "platform/Hourglass.h"
#include "platform/Progress.h"

namespace kvi {

namespace {

constexpr const char* kTitle = "Export to workbook";
constexpr const char* kExtension = ".xlsx";

WorkbookTable::Kind KindOf(const CellFormat& format) {
  if (format.Kind == CellKind::Date) return WorkbookTable::Kind::Date;
  return format.Align == CellAlign::Right ? WorkbookTable::Kind::Figure : WorkbookTable::Kind::Text;
}

}  // namespace

WorkbookTable TableOf(const Spread& grid) {
  WorkbookTable table{.rows = grid.MaxRows()};
  std::vector<int> shown;
  for (int col = 1; col <= grid.MaxCols(); ++col) {
    if (grid.ColWidth(col) <= 0) continue;
    shown.push_back(col);
    table.columns.push_back({grid.Text(0, col), grid.ColWidth(col)});
    const bool kept = std::ranges::find(grid.KeptCols, col) != grid.KeptCols.end();
    if (kept && table.keptColumns + 1 == static_cast<int>(shown.size())) ++table.keptColumns;
  }
  table.cell = [&grid, shown](int row, std::size_t column) -> WorkbookTable::Cell {
    const int col = shown[column];
    return {grid.Text(row + 1, col), KindOf(grid.Format(row + 1, col))};
  };
  return table;
}

WorkbookItem::WorkbookItem(Menu& menu, Application& app, Screen& screen, const Spread& grid)
    : MenuItem(menu, "m_workbook", "Export to &workbook..."),
      app_(app),
      screen_(screen),
      grid_(grid) {
  Click = [this] { Export(); };
}

void WorkbookItem::Export() {
  if (grid_.MaxRows() == 0) {
    app_.desktop.MsgBox({"Nothing to export", kTitle});
    return;
  }
  const std::string name = screen_.Caption() + " " + Format(app_.clock.Now(), "yyyy-mm-dd");
  auto path = app_.desktop.SaveFileDialog(
      {kTitle, {{"Workbook (*.xlsx)", std::string("*") + kExtension}}, name + kExtension});
  if (!path) return;
  if (!path->ends_with(kExtension)) *path += kExtension;
  {
    const Hourglass busy(app_.desktop);
    WorkbookTable table = TableOf(grid_);
    const auto progress = app_.desktop.NewProgress(kTitle, false);
    progress->Begin("Writing the rows", table.rows);
    table.cell = [&progress, cell = std::move(table.cell)](int row, std::size_t column) {
      progress->Done(row);
      return cell(row, column);
    };
    WriteWorkbook(*path, screen_.Caption(), table);
  }
  screen_.Say("Exported to " + *path);
}

}  // namespace kvi
