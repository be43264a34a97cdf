#include "jet/file/Row.h"

#include <algorithm>

namespace kvi::jetfile {

std::size_t LengthOf(ColumnType type) {
  switch (type) {
    case ColumnType::Byte:
      return 1;
    case ColumnType::Integer:
      return 2;
    case ColumnType::Long:
    case ColumnType::Single:
      return 4;
    case ColumnType::Currency:
    case ColumnType::Double:
    case ColumnType::Date:
      return 8;
    case ColumnType::Guid:
      return 16;
    case ColumnType::Numeric:
      return 17;
    default:
      return 0;
  }
}

Row::Row(const Layout& layout, const TableDefinition& table, Bytes bytes)
    : bytes_(bytes), head_(layout.countSize) {
  columns_ = head_ == 1 ? bytes_.U8(0) : bytes_.U16(0);
  if (columns_ > table.MostColumns)
    RaiseDamaged("a row of " + std::to_string(columns_) + " columns");
  const std::size_t maskSize = (columns_ + 7) / 8;
  if (bytes_.Size() < head_ + maskSize) RaiseDamaged("a row ends early");
  const std::size_t end = bytes_.Size() - maskSize;
  mask_ = bytes_.Part(end, maskSize);
  fixedEnd_ = end;
  // Rows without a value in a variable column may have no variable part at all.
  const bool hasVariable = std::ranges::any_of(table.Columns, [this](const Column& column) {
    return !column.Fixed && column.Type != ColumnType::Boolean && IsSet(column);
  });
  if (hasVariable) ReadVariablePart(end);
}

bool Row::IsSet(const Column& column) const {
  return column.Number < columns_ && (mask_.U8(column.Number / 8) >> column.Number % 8 & 1) != 0;
}

void Row::ReadVariablePart(std::size_t end) {
  if (head_ == 1) {
    ReadJet3Offsets(end);
  } else {
    const unsigned count = bytes_.U16(end - 2);
    if (count >= offsets_.size() || end < head_ + 2 + 2 * (count + 1))
      RaiseDamaged("a row of " + std::to_string(count) + " values of varying length");
    for (unsigned i = 0; i <= count; ++i) offsets_[i] = bytes_.U16(end - 4 - 2 * i);
    count_ = count;
    CheckOffsets(end - 2 - 2 * (count + 1));
  }
  fixedEnd_ = offsets_[0];
}

// One byte an offset; where a row is longer, jump bytes tell at which offset another 256 begin.
void Row::ReadJet3Offsets(std::size_t end) {
  const unsigned count = bytes_.U8(end - 1);
  const std::size_t jumps = (bytes_.Size() - 1) / 256;
  if (end < head_ + 1 + jumps + count + 1)
    RaiseDamaged("a row of " + std::to_string(count) + " values of varying length");
  for (unsigned i = 0; i <= count; ++i) {
    offsets_[i] = bytes_.U8(end - 2 - jumps - i);
    for (std::size_t k = 0; k < jumps; ++k)
      if (bytes_.U8(end - 2 - k) <= i) offsets_[i] += 256;
  }
  count_ = count;
  CheckOffsets(end - 1 - jumps - (count + 1));
}

void Row::CheckOffsets(std::size_t listStart) const {
  const auto last = offsets_.begin() + *count_;
  if (offsets_[0] < head_ || *last > listStart || !std::is_sorted(offsets_.begin(), last + 1))
    RaiseDamaged("a row whose offsets contradict each other");
}

Bytes Row::Of(const Column& column) const {
  const std::size_t length = LengthOf(column.Type);
  if (column.Fixed) {
    const std::size_t at = head_ + column.FixedOffset, size = length > 0 ? length : column.Size;
    if (at + size > fixedEnd_) RaiseDamaged("a value reaches beyond its room");
    return bytes_.Part(at, size);
  }
  if (column.VariableIndex >= *count_) RaiseDamaged("a value is not in its row");
  const std::size_t at = offsets_[column.VariableIndex];
  const Bytes value = bytes_.Part(at, offsets_[column.VariableIndex + 1] - at);
  if (length > 0 && value.Size() != length) RaiseDamaged("a value of the wrong length");
  return value;
}

}  // namespace kvi::jetfile
