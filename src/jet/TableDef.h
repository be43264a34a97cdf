#pragma once

#include <string>
#include <vector>

#include "base/Value.h"

namespace kvi::jet {

// Field types under their classic numbers.
enum class FieldType {
  Boolean = 1,
  Integer = 3,
  Single = 6,
  Double = 7,
  Date = 8,
  Text = 10,
  Memo = 12,
};

// One field of a table. Text holds at most `Size` characters (255 when not stated); memo has no
// bound. A new row starts with the default, Null where there is none.
struct FieldDef {
  std::string Name;
  FieldType Type = FieldType::Text;
  int Size = 255;
  Value Default = {};
};

// An index on expressions as SQLite writes them, e.g. "trim(inv_id) COLLATE JET1" or "p_date DESC".
// (A field has its collation by itself, an expression has not.)
struct IndexDef {
  std::vector<std::string> Columns;
  bool Unique = false;
};

// One table. Every table of ours also carries two columns hidden from `*`: `_rid`, the row's
// identity, and `_ver`, raised by each write.
struct TableDef {
  std::string Name;
  std::vector<FieldDef> Fields;
  std::vector<IndexDef> Indexes;
};

}  // namespace kvi::jet
