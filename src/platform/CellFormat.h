#pragma once

#include <cstdint>

#include "base/Palette.h"

namespace kvi {

// A Float takes amounts alone and keeps them with two decimals.
enum class CellKind : std::uint8_t { Edit, Static, Number, Float, Date, List, CheckBox };
enum class CellAlign : std::uint8_t { Left, Center, Right };

// The look and behaviour of one cell of a grid.
struct CellFormat {
  int BackColor = kToolkitColor;  // palette index
  int ForeColor = kToolkitColor;
  bool Lock = false;
  CellKind Kind = CellKind::Edit;
  CellAlign Align = CellAlign::Left;
  int TypeEditLen = 0;  // largest text length in characters; 0 is no bound
  bool operator==(const CellFormat&) const = default;
};

// One attribute of a format and when it was set, in counts of column settings; 0 is never. A row's
// or cell's setting stands over a column's of the same count, and a cell's over its row's.
template <class T>
struct Stamped {
  T value{};
  std::uint32_t when = 0;
};

// The attributes that were set for one column, row or cell.
struct FormatPatch {
  Stamped<int> back, fore, editLen;
  Stamped<bool> lock;
  Stamped<CellKind> kind;
  Stamped<CellAlign> align;
};

}  // namespace kvi
