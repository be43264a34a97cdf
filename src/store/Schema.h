#pragma once

#include <string>
#include <vector>

#include "jet/Database.h"
#include "jet/TableDef.h"

namespace kvi {

// Every table of KV_Inventory.mdb, its fields and the indexes that serve the system's statements:
// the one place from which a new database is made. The defaults hold for files made before, too.
const std::vector<jet::TableDef>& Schema();

// Fills those CW_ tables of a new database that are empty: one row per grid column, in twips, so
// that the columns a person needs most stand on a desk of 1366 pixels without scrolling.
void FillColumnWidths(jet::Database& database);

// Makes a database with all tables and the column widths, and nothing else: the first start adds
// the profit center. Raises 3204 when a file stands at the path.
jet::Database CreateInventoryDatabase(const std::string& path);

}  // namespace kvi
