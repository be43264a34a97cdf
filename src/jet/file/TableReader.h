#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/Value.h"
#include "jet/file/DataPage.h"
#include "jet/file/LongValue.h"
#include "jet/file/TableDefinition.h"

namespace kvi::jetfile {

// One pass over a table's rows. What is damaged is passed over and told: a row or page that cannot
// be read is missing, a value that cannot be read is Null. Nothing is guessed.
class TableReader {
 public:
  // Borrows the file. Raises Damaged for a table of which nothing can be read.
  TableReader(PageFile& file, std::uint32_t definitionPage);

  const TableDefinition& Definition() const { return table_; }
  // Goes to the next row and gives the values of all columns; false at the end. Raises CannotRead.
  bool Next(std::vector<Value>& row);
  // The rows given so far.
  std::uint32_t Rows() const { return rows_; }

  // What is missing of the table, a line each; after the last row it is complete. Many lines are
  // cut to the first ones and the number of the others.
  std::vector<std::string> Damage() const;

 private:
  bool NextPage();
  std::optional<Bytes> RowAt(std::uint32_t slot);
  Bytes Follow(Bytes pointer);
  void ReadRow(Bytes bytes, std::vector<Value>& values);
  Value ReadValue(const Column& column, Bytes bytes);
  void Note(const std::string& what);
  void CompareCounts();

  PageFile& file_;
  const TableDefinition table_;
  LongValues longValues_;
  std::vector<std::uint32_t> pages_;
  std::size_t nextPage_ = 0;
  std::optional<DataPage> page_, farPage_;  // of the row, and where it was moved to
  std::uint32_t slot_ = 0;
  std::uint32_t rows_ = 0;
  bool atEnd_ = false;
  std::vector<std::string> damage_;
  std::size_t moreDamage_ = 0;
};

}  // namespace kvi::jetfile
