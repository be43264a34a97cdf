#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "jet/file/TableDefinition.h"

namespace kvi::jetfile {

// One row's bytes cut into its columns. It borrows the bytes. Made anew for each row; raises
// Damaged where the row contradicts itself.
class Row {
 public:
  Row(const Layout& layout, const TableDefinition& table, Bytes bytes);

  // Whether the row's mask says that the column has a value. Of a Boolean it is the value itself.
  bool IsSet(const Column& column) const;
  // The bytes of a column that is set.
  Bytes Of(const Column& column) const;

 private:
  void ReadVariablePart(std::size_t end);
  void ReadJet3Offsets(std::size_t end);
  void CheckOffsets(std::size_t listStart) const;

  const Bytes bytes_;
  const std::size_t head_;  // of the count of columns
  unsigned columns_;
  Bytes mask_;
  std::size_t fixedEnd_;           // no fixed value reaches beyond it
  std::optional<unsigned> count_;  // of variable columns
  std::array<std::uint32_t, 256> offsets_;
};

// How many bytes a value of the type always has; 0 where that differs.
std::size_t LengthOf(ColumnType type);

}  // namespace kvi::jetfile
