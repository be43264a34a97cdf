#pragma once

#include "frame/Application.h"
#include "grids/Workbook.h"
#include "platform/Controls.h"
#include "platform/Spread.h"

namespace kvi {

// What a grid shows, as a table: its visible columns, right-aligned ones as figures.
WorkbookTable TableOf(const Spread& grid);

// "Export to workbook..." of a screen's file menu: the grid in a workbook, at a place and under a
// name of the user's choice. Part of its screen.
class WorkbookItem : public MenuItem {
 public:
  WorkbookItem(Menu& menu, Application& app, Screen& screen, const Spread& grid);

 private:
  void Export();

  Application& app_;
  Screen& screen_;
  const Spread& grid_;
};

}  // namespace kvi
