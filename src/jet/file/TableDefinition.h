#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "jet/file/PageFile.h"

namespace kvi::jetfile {

struct Column {
  std::string Name;
  ColumnType Type = ColumnType::Text;
  bool Fixed = false;
  unsigned Number = 0;         // the bit in a row's null mask
  unsigned VariableIndex = 0;  // the place in a row's list, of columns that are not fixed
  unsigned FixedOffset = 0, Size = 0, Scale = 0;
};

// A unique or plain index as users know it; those that only serve a relation are left out.
struct Index {
  std::string Name;
  struct Part {
    std::size_t column;  // the position in the table's columns
    bool ascending;
  };
  std::vector<Part> Parts;
  bool Unique = false;
};

// What a table is: its columns in the order of their numbers, and where its rows lie.
struct TableDefinition {
  std::uint32_t Page = 0;
  std::uint32_t DeclaredRows = 0;
  unsigned MostColumns = 0;  // that a row may have, deleted ones included
  std::vector<Column> Columns;
  std::vector<Index> Indexes;
  std::uint32_t OwnedPages = 0;  // the row pointer to their map
};

// The definition that begins on a page. Raises Damaged.
TableDefinition ReadDefinition(PageFile& file, std::uint32_t page);

// The pages of rows that a table owns, in ascending order. What is wrong with single pages is told
// to `damaged`; a map that cannot be read at all raises Damaged.
std::vector<std::uint32_t> ReadOwnedPages(PageFile& file, const TableDefinition& table,
                                          std::vector<std::string>& damaged);

}  // namespace kvi::jetfile
