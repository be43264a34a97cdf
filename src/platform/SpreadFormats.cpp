#include <algorithm>

#include "base/RunTimeError.h"
#include "platform/Spread.h"

namespace kvi {
namespace {

// The patch of a column among a row's cells, or where it would stand.
template <class Cells>
auto CellAt(Cells& cells, int col) {
  return std::ranges::lower_bound(cells, col, {}, [](const auto& cell) { return cell.first; });
}

}  // namespace

// The corners with -1 put as the last ones; an empty block comes back as rows 1 to 0.
Block Spread::Resolved(Block block) const {
  if (block.row2 == -1) block.row2 = MaxRows();
  if (block.col2 == -1) block.col2 = maxCols_;
  if (block.row2 < block.row || block.col2 < block.col) return {1, 1, 0, 0};
  CheckCell(block.row, block.col);
  CheckCell(block.row2, block.col2);
  return block;
}

template <class T>
void Spread::Put(Block block, Stamped<T> FormatPatch::*attribute, T value) {
  const bool wholeColumns = block.row <= 1 && block.row2 == -1;
  if (wholeColumns) {
    // Over the headings' row, so that a grid without rows has its columns too.
    const Block columns = Resolved({0, block.col, 0, block.col2});
    ++columnSettings_;
    for (int col = columns.col; col <= columns.col2; ++col)
      columns_[At(col)].*attribute = {value, columnSettings_};
    block.row2 = 0;
  }
  const Block cells = Resolved(block);
  const bool wholeRows = cells.col == 1 && cells.col2 == maxCols_;
  const Stamped<T> set{value, columnSettings_};
  for (int row = cells.row; row <= cells.row2; ++row) {
    RowData& data = Make(row);
    if (wholeRows) {
      data.whole.*attribute = set;
      for (auto& cell : data.cells) cell.second.*attribute = {};
      continue;
    }
    for (int col = cells.col; col <= cells.col2; ++col) {
      auto at = CellAt(data.cells, col);
      if (at == data.cells.end() || at->first != col) at = data.cells.insert(at, {col, {}});
      at->second.*attribute = set;
    }
  }
  Tell(Property::Cells);
}

CellFormat Spread::Format(int row, int col) const {
  CellFormat format;
  if (!Has(row, col)) return format;
  static const FormatPatch unset;
  const RowData* data = Peek(row);
  const FormatPatch& column = row == 0 ? unset : columns_[At(col)];
  const FormatPatch& whole = data == nullptr ? unset : data->whole;
  const FormatPatch* cell = &unset;
  if (data != nullptr && !data->cells.empty()) {
    const auto at = CellAt(data->cells, col);
    if (at != data->cells.end() && at->first == col) cell = &at->second;
  }
  const auto take = [&](auto attribute, auto& into) {
    const auto* latest = &(column.*attribute);
    for (const FormatPatch* patch : {&whole, cell}) {
      const auto& candidate = patch->*attribute;
      if (candidate.when != 0 && candidate.when >= latest->when) latest = &candidate;
    }
    if (latest->when != 0) into = latest->value;
  };
  if (row == 0) {
    format.Lock = true;
    format.Kind = CellKind::Static;
  }
  take(&FormatPatch::back, format.BackColor);
  take(&FormatPatch::fore, format.ForeColor);
  take(&FormatPatch::lock, format.Lock);
  take(&FormatPatch::kind, format.Kind);
  take(&FormatPatch::align, format.Align);
  take(&FormatPatch::editLen, format.TypeEditLen);
  return format;
}

void Spread::SetBackColor(Block block, int color) {
  Put(block, &FormatPatch::back, color);
}
void Spread::SetForeColor(Block block, int color) {
  Put(block, &FormatPatch::fore, color);
}
void Spread::SetLock(Block block, bool lock) {
  Put(block, &FormatPatch::lock, lock);
}
void Spread::SetKind(Block block, CellKind kind) {
  Put(block, &FormatPatch::kind, kind);
}
void Spread::SetAlign(Block block, CellAlign align) {
  Put(block, &FormatPatch::align, align);
}
void Spread::SetTypeEditLen(Block block, int length) {
  Put(block, &FormatPatch::editLen, length);
}

void Spread::SetChoices(int col, std::vector<std::string> choices) {
  CheckCell(0, col);
  choices_[col] = std::move(choices);
  Tell(Property::Cells);
}

const std::vector<std::string>& Spread::Choices(int col) const {
  static const std::vector<std::string> none;
  const auto found = choices_.find(col);
  return found == choices_.end() ? none : found->second;
}

}  // namespace kvi
