#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "jet/TableDef.h"

namespace kvi::jet {

// How a table of ours stands on the server. Names are in small letters there, as the dialect knows
// no case; their spelling is kept in comments. A Text or Memo field has a hidden column "_k_"
// beside it, kept by the server, which holds its key, so that comparing "C" is comparing by our
// order.

// A name as the server takes it, quoted. Raises 3075 for one with a bracket or a quote in it, and
// 3125 for one that is longer than the server keeps.
std::string ServerName(std::string_view name);
// The hidden column of a Text or Memo field, quoted.
std::string ServerKeyName(std::string_view field);

// Another one, of a field with an index over its text without blanks.
std::string ServerTrimmedKeyName(std::string_view field);

// The statements that make a table with its indexes; each to be run by itself, in order.
std::vector<std::string> ServerTableSql(const TableDef& table);
// The same, for rows to come before the indexes.
std::vector<std::string> ServerTableWithoutIndexesSql(const TableDef& table);
// The statements that add a field to a table that is there.
std::vector<std::string> ServerFieldSql(std::string_view table, const FieldDef& field);
// The statement for one index. What a plain index leaves equal stands in the order of `_rid`.
std::string ServerIndexSql(const TableDef& table, const IndexDef& index);

}  // namespace kvi::jet
