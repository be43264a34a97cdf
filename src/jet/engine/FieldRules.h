#pragma once

#include <string>
#include <string_view>

#include "base/Value.h"
#include "jet/TableDef.h"

namespace kvi::jet {

// The value as the field stores it. Raises 3421 for what the type cannot take and 3163 for a text
// over the field's size. Null is taken by every field; in a boolean it is False.
Value ToField(const FieldDef& field, const Value& value);

// The column definition that stands for a field in CREATE TABLE and ALTER TABLE, and back: the
// field that a declared type stands for, also one that another tool declared.
std::string ColumnDefinition(const FieldDef& field);
FieldDef FieldOfColumn(std::string_view name, std::string_view declaredType);

// A name in the brackets that SQLite never takes for a text; 3075 for one with a bracket in it.
std::string Bracketed(std::string_view name);

}  // namespace kvi::jet
