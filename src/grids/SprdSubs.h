#pragma once

#include <memory>
#include <string>
#include <vector>

#include "jet/Database.h"
#include "platform/Controls.h"
#include "platform/Desktop.h"
#include "platform/Progress.h"
#include "platform/Screen.h"
#include "platform/Spread.h"

namespace kvi {

// The small wrappers by which all screens work their grids.

// Empties all texts below the headings; the code's cursor goes to row 1, column 1.
void ClearGrid(Spread& grid);

// These move the code's cursor and make its cell the active one; a row or column outside goes to
// the nearest one inside.
void GoToFirstCell(Spread& grid);
void GoToRow(Spread& grid, int row);
void GoToCell(Spread& grid, int row, int col);

// Tells how far the load of so many rows is.
std::unique_ptr<Progress> ReadingList(const Spread& grid, Desktop& desktop, int count);

// Whether a typed letter searches in a column of this heading, in the lists of parts. A list that
// heads a column otherwise ("Number") has no such search in it.
bool TakesFirstLetter(const std::string& heading);
// Goes to the first row whose cell in the column begins with the letter of the key, whatever the
// case of either; the active column stays. No such cell leaves everything where it is.
void GoToFirstLetter(Spread& grid, int column, const std::string& key);

// "3 of 12 records" in the first panel: the active row and the count.
void ShowGridPosition(const Spread& grid, StatusBar& bar);
// The same, and in the second panel how much is typed and not saved ("3 counts not saved") before
// the whole texts of the active row's `told` columns.
void ShowGridRow(const Spread& grid, StatusBar& bar, const std::vector<int>& told,
                 const std::string& typed = "row");
// What a load took away that was typed and not saved; "" when that is nothing.
std::string NotSaved(int typedRows, const std::string& typed);
// "1 part", "12 parts".
std::string CountOf(int count, const std::string& thing);

// Read-only as a whole, also for rows that come later.
void LockGrid(Spread& grid);

// White rows, or with colours light grey ones at every even row number. Runs after each load and
// each sort, so that the stripes stay right. The code's cursor goes to the active row (1 when none
// is).
void ShadeGridRows(Spread& grid, bool useColors);

// The kept column widths of KVI_InventorySummary, KVI_PGSummary and KVI_OrderSystem, for the whole
// installation; other screens have none, and nothing happens. A table without rows leaves the grid
// as designed.
void LoadColumnWidths(Spread& grid, const Screen& screen, jet::Database& database);
// A width under 150 twips is kept as 150: a column dragged shut comes back visible.
void SaveColumnWidths(const Spread& grid, const Screen& screen, jet::Database& database);
// The same on the way out of a screen: widths that cannot be kept are told, and are no reason to
// hold the user there.
void SaveColumnWidths(const Spread& grid, const Screen& screen, jet::Database& database,
                      Desktop& desktop);
// All kept widths become 1500. Stops at the first of the three tables that is empty; false then.
[[nodiscard]] bool ResetColumnWidths(jet::Database& database);

}  // namespace kvi
