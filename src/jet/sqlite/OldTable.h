#pragma once

#include <functional>
#include <string>
#include <vector>

#include "jet/Conversion.h"
#include "jet/TableDef.h"
#include "jet/file/TableReader.h"

namespace kvi::jet {

// One table of a Jet file as a table of ours: its fields, its unique indexes, its rows. Of values
// that no field of ours can hold (pictures and other binary ones) only their number is told.
class OldTable {
 public:
  // Borrows the file. Raises as TableReader.
  OldTable(jetfile::PageFile& file, const std::string& name, std::uint32_t page);

  const TableDef& Design() const { return design_; }
  int Declared() const { return static_cast<int>(reader_.Definition().DeclaredRows); }
  // The next row's values, one a field; false at the end.
  bool Next(std::vector<Value>& row);
  int Rows() const { return static_cast<int>(reader_.Rows()); }
  // What is missing of the rows given so far, and what no field can hold, a line each.
  std::vector<std::string> Losses() const { return reader_.Damage(); }
  std::vector<std::string> LeftOut() const;

 private:
  jetfile::TableReader reader_;
  TableDef design_;
  struct Unheld {
    std::size_t column;
    int values = 0;
  };
  std::vector<std::size_t> kept_;
  std::vector<Unheld> unheld_;
  std::vector<Value> all_;
};

}  // namespace kvi::jet
