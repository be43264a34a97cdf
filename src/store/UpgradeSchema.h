#pragma once

#include <string>

#include "jet/Database.h"
#include "platform/Desktop.h"

namespace kvi {

// Brings a database of an older version up to date: adds the columns of I_Master that it lacks.
// Safe on every start; there is no version number, each step tests for itself. A step that fails
// says so in a box, and the start goes on without the column.
void UpgradeSchema(jet::Database& database, Desktop& desktop);

// Whether the table has a field of that name, compared in upper case.
bool FieldExists(jet::Database& database, const std::string& table, const std::string& field);

// Adds a field. `type` is "TEXT" (of `size` characters), "INTEGER", "SINGLE", "DOUBLE", "MEMO",
// "BOOLEAN" or "DATE". A field that stands already is harmless; any other failure is a box with
// its number and description, and false.
bool AddField(jet::Database& database, Desktop& desktop, const std::string& table,
              const std::string& field, const std::string& type, int size = 0);

}  // namespace kvi
