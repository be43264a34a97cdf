#pragma once

#include <string>

#include "jet/sqlite/SqliteConnection.h"

namespace kvi::jet {

void CreateTable(SqliteConnection& connection, const TableDef& table);
// The table's index of this number. Raises 3022 where rows share a key that is to be unique.
void CreateIndex(SqliteConnection& connection, const std::string& table, const IndexDef& index,
                 int number);

}  // namespace kvi::jet
