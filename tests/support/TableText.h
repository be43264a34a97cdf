#pragma once

#include <string>

#include "jet/Database.h"

namespace kvi::test {

// Adds rows to a table. The first line names the fields, "|" parts the cells, blanks around them do
// not count; an empty cell is Null, '' an empty text, 'a ' a text with its blank.
//   FillTable(database, "I_Master", "inv_id | name\n 100 | Bolt");
void FillTable(jet::Database& database, const std::string& table, const std::string& rows);

// The rows of a set from its first one on, a line a row, cells parted by "|"; Null reads "Null".
// Only the fields named (parted by blanks), or all.
std::string RowsText(jet::Recordset& set, const std::string& fields = "");

}  // namespace kvi::test
