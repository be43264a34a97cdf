#include "jet/sets/RowBlock.h"

#include <array>
#include <charconv>
#include <string>

namespace kvi::jet {
namespace {

// How many times its rows a range of keys may hold to be read as a range.
constexpr std::int64_t kDense = 3;

std::string ListOf(const KeySet& keys, std::size_t begin, std::size_t count) {
  std::string list = "[";
  list.reserve(count * 10 + 2);
  for (std::size_t position = begin; position < begin + count; ++position) {
    if (keys.IsDeleted(position)) continue;
    if (list.size() > 1) list += ',';
    std::array<char, 24> digits;
    const auto end = std::to_chars(digits.begin(), digits.end(), keys[position]).ptr;
    list.append(digits.begin(), end);
  }
  return list += ']';
}

}  // namespace

void RowBlock::Read(Engine& engine, QueryShape& shape, const KeySet& keys, std::size_t begin,
                    std::size_t count) {
  Start(begin, shape.Columns());
  engine.LookBeforeReading();
  rows_.resize(count);
  cells_.resize(count * columns_->Fields.size());
  const std::int64_t first = keys[begin], last = keys[begin + count - 1];
  if ((count == 1 || keys.IsAscending()) &&
      last - first < static_cast<std::int64_t>(count) * kDense) {
    StatementRun run(engine.connection, columns_->RangeSql);
    run.Bind(1, first);
    run.Bind(2, last);
    TakeAll(engine, shape, keys, run, true);
  } else {
    const std::string list = ListOf(keys, begin, count);
    StatementRun run(engine.connection, columns_->ListSql);
    run.Bind(1, std::string_view(list));
    TakeAll(engine, shape, keys, run, false);
  }
}

void RowBlock::TakeAll(Engine& engine, const QueryShape& shape, const KeySet& keys,
                       StatementRun& run, bool isRange) {
  std::size_t row = 0;
  bool first = true;
  while (run.Step()) {
    if (first) engine.LookWhileReading();
    first = false;
    const std::int64_t key = run.Whole(0);
    // In a range there are rows that are not of the set; in both there are keys whose row is gone.
    while (keys[begin_ + row] != key && !(isRange && keys[begin_ + row] > key)) ++row;
    if (keys[begin_ + row] == key) Take(run, shape, row);
  }
  Stamp = engine.Now(shape.Table());
}

bool RowBlock::ReadAgain(Engine& engine, const QueryShape& shape, const KeySet& keys,
                         std::size_t position) {
  const std::size_t row = position - begin_;
  StatementRun run(engine.connection, columns_->RowSql);
  run.Bind(1, keys[position]);
  if (run.Step())
    Take(run, shape, row);
  else
    rows_[row].gone = true;
  return !rows_[row].gone;
}

void RowBlock::Start(std::size_t begin, std::shared_ptr<const ColumnChoice> columns) {
  begin_ = begin;
  columns_ = std::move(columns);
  rows_.clear();
  cells_.clear();
}

void RowBlock::Append(const StatementRun& run, const QueryShape& shape) {
  rows_.emplace_back();
  cells_.resize(cells_.size() + columns_->Fields.size());
  Take(run, shape, rows_.size() - 1);
}

void RowBlock::Take(const StatementRun& run, const QueryShape& shape, std::size_t row) {
  rows_[row] = {run.Whole(1), false};
  Value* cell = cells_.data() + row * columns_->Fields.size();
  int column = 2;
  for (const std::size_t field : columns_->Fields)
    *cell++ = run.Field(column++, shape.Fields()[field].Type);
}

}  // namespace kvi::jet
