#include "platform/Spread.h"

#include <algorithm>
#include <numeric>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "base/TextOrder.h"

namespace kvi {
namespace {

bool IsBlank(const std::string& text) {
  return text.find_first_not_of(' ') == std::string::npos;
}

bool IsNumber(CellKind kind) {
  return kind == CellKind::Number || kind == CellKind::Float;
}

int Compare(double left, double right) {
  return left < right ? -1 : left > right ? 1 : 0;
}

}  // namespace

Spread::Spread(Screen& screen, std::string name, int maxCols, int maxRows)
    : Control(screen, ControlKind::Spread, std::move(name)) {
  rows_.resize(1);
  SetMaxCols(maxCols);
  SetMaxRows(maxRows);
}

Spread::~Spread() = default;

void Spread::SetMaxRows(int rows) {
  if (rows < 0) throw RunTimeError(380);
  for (const HiddenRow& row : hidden_) typing_.ForgetRow(row.data.get());
  hidden_.clear();
  if (rows == MaxRows()) return;
  if (rows < MaxRows()) typing_.Clear();
  rows_.resize(At(rows) + 1);
  RowsChanged();
}

void Spread::SetMaxCols(int cols) {
  if (cols < 0) throw RunTimeError(380);
  if (cols == maxCols_) return;
  maxCols_ = cols;
  columns_.resize(At(cols) + 1);
  widths_.resize(At(cols) + 1, kDefaultColWidth);
  std::erase_if(choices_, [&](const auto& choice) { return choice.first > cols; });
  for (const auto& row : rows_) {
    if (!row) continue;
    if (row->texts.size() > At(cols)) row->texts.resize(At(cols));
    std::erase_if(row->cells, [&](const auto& cell) { return cell.first > cols; });
  }
  RowsChanged();
}

bool Spread::Has(int row, int col) const {
  return row >= 0 && row <= MaxRows() && col >= 1 && col <= maxCols_;
}

void Spread::CheckCell(int row, int col) const {
  if (!Has(row, col)) throw RunTimeError(381);
}

Spread::RowData& Spread::Make(int row) {
  auto& data = rows_[At(row)];
  if (!data) data = std::make_unique<RowData>();
  return *data;
}

const std::string& Spread::Text(int row, int col) const {
  static const std::string empty;
  if (!Has(row, col)) return empty;
  const RowData* data = Peek(row);
  return data != nullptr && data->texts.size() >= At(col) ? data->texts[At(col) - 1] : empty;
}

void Spread::SetText(int row, int col, std::string text) {
  CheckCell(row, col);
  if (!isTyping_ && Peek(row) != nullptr) typing_.ForgetCell(Peek(row), col);
  if (text == Text(row, col)) return;
  auto& texts = Make(row).texts;
  if (texts.size() < At(col)) {
    texts.reserve(At(maxCols_));
    texts.resize(At(col));
  }
  texts[At(col) - 1] = std::move(text);
  Tell(Property::Cells);
}

void Spread::ClearText(Block block) {
  const Block cells = Resolved(block);
  typing_.Clear();
  for (int row = cells.row; row <= cells.row2; ++row) {
    if (Peek(row) == nullptr) continue;
    auto& texts = Make(row).texts;
    for (int col = cells.col; col <= cells.col2 && At(col) <= texts.size(); ++col)
      texts[At(col) - 1].clear();
  }
  Tell(Property::Cells);
}

void Spread::BlankRows() {
  typing_.Clear();
  for (auto row = rows_.begin() + 1; row != rows_.end(); ++row) row->reset();
  Tell(Property::Cells);
}

double Spread::ColWidth(int col) const {
  return Has(0, col) ? widths_[At(col)] : 0;
}

void Spread::SetColWidth(int col, double twips) {
  CheckCell(0, col);
  if (twips == widths_[At(col)]) return;
  widths_[At(col)] = std::max(twips, 0.0);
  Tell(Property::Cells);
}

double Spread::RowHeight(int row) const {
  if (row < 0 || row > MaxRows() || Peek(row) == nullptr) return 0;
  return Peek(row)->height;
}

void Spread::SetRowHeight(int row, double twips) {
  if (row < 0 || row > MaxRows()) throw RunTimeError(381);
  if (twips == RowHeight(row)) return;
  Make(row).height = std::max(twips, 0.0);
  Tell(Property::Cells);
}

void Spread::InsertRow(int row) {
  if (row < 1 || row > MaxRows() + 1) throw RunTimeError(381);
  rows_.insert(rows_.begin() + row, nullptr);
  RowsChanged();
}

void Spread::DeleteRow(int row) {
  if (row < 1 || row > MaxRows()) throw RunTimeError(381);
  typing_.ForgetRow(Peek(row));
  rows_.erase(rows_.begin() + row);
  RowsChanged();
}

void Spread::Sort(int keyCol, bool ascending, const CellOrder& order) {
  CheckCell(0, keyCol);
  SortRows(keyCol, ascending,
           [&](int left, int right) { return order(Text(left, keyCol), Text(right, keyCol)); });
}

void Spread::Sort(int keyCol, bool ascending) {
  CheckCell(0, keyCol);
  bool byValue = true;
  for (int row = 1; row <= MaxRows() && byValue; ++row)
    byValue = IsNumber(Format(row, keyCol).Kind);
  if (byValue) {
    std::vector<double> keys(rows_.size());
    for (int row = 1; row <= MaxRows(); ++row) keys[At(row)] = Val(Text(row, keyCol));
    SortRows(keyCol, ascending,
             [&](int left, int right) { return Compare(keys[At(left)], keys[At(right)]); });
  } else {
    Sort(keyCol, ascending, CompareTexts);
  }
}

void Spread::SortRows(int keyCol, bool ascending, const std::function<int(int, int)>& order) {
  std::vector<int> sequence(At(MaxRows()));
  std::iota(sequence.begin(), sequence.end(), 1);
  const auto blanks = std::stable_partition(sequence.begin(), sequence.end(),
                                            [&](int row) { return !IsBlank(Text(row, keyCol)); });
  std::stable_sort(sequence.begin(), blanks, [&](int left, int right) {
    return ascending ? order(left, right) < 0 : order(left, right) > 0;
  });
  std::vector<std::unique_ptr<RowData>> sorted;
  sorted.reserve(rows_.size());
  sorted.push_back(std::move(rows_[0]));
  for (const int row : sequence) sorted.push_back(std::move(rows_[At(row)]));
  rows_ = std::move(sorted);
  RowsChanged();
}

void Spread::SetActiveCell(int row, int col) {
  const int nearestRow = std::clamp(row, std::min(1, MaxRows()), MaxRows());
  const int nearestCol = std::clamp(col, 1, std::max(1, maxCols_));
  const bool moved = nearestRow != activeRow_ || nearestCol != activeCol_;
  activeRow_ = nearestRow;
  activeCol_ = nearestCol;
  // Told even when it stands there already: the user may have scrolled away from it.
  Tell(Property::ActiveCell);
  if (moved && ActiveCellChanged) ActiveCellChanged();
}

void Spread::GoToCell(int row, int col) {
  Row = row;
  Col = col;
  SetActiveCell(row, col);
}

void Spread::MarkSorted(int col) {
  if (col == sortedCol_) return;
  sortedCol_ = col;
  Tell(Property::Cells);
}

void Spread::RowsChanged() {
  selection_.clear();
  Tell(Property::Cells);
  if (activeRow_ <= MaxRows() && activeCol_ <= std::max(1, maxCols_)) return;
  activeRow_ = std::min(activeRow_, MaxRows());
  activeCol_ = std::clamp(activeCol_, 1, std::max(1, maxCols_));
  Tell(Property::ActiveCell);
}

void Spread::SetReDraw(bool on) {
  paintingOff_ = std::max(0, paintingOff_ + (on ? -1 : 1));
  if (!ReDraw()) return;
  if (std::exchange(staleCells_, false)) TellView(Property::Cells);
  if (std::exchange(staleActiveCell_, false)) TellView(Property::ActiveCell);
}

void Spread::Tell(Property property) {
  if (property == Property::Cells) ++revision_;
  if (ReDraw())
    TellView(property);
  else
    (property == Property::Cells ? staleCells_ : staleActiveCell_) = true;
}

}  // namespace kvi
