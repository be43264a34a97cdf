#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "base/Value.h"
#include "jet/engine/Engine.h"
#include "jet/engine/StatementRun.h"
#include "jet/sets/KeySet.h"
#include "jet/sets/QueryShape.h"

namespace kvi::jet {

// Neighbouring rows of a dynaset, held in memory with the columns that are read. A row that another
// desk deleted keeps its place and is gone.
class RowBlock {
 public:
  std::size_t Begin() const { return begin_; }
  std::size_t End() const { return begin_ + rows_.size(); }
  bool Covers(std::size_t position) const { return position >= begin_ && position < End(); }
  bool IsEmpty() const { return rows_.empty(); }

  // The rows of these positions, through one statement.
  void Read(Engine& engine, QueryShape& shape, const KeySet& keys, std::size_t begin,
            std::size_t count);
  // One row afresh, in place; false when it is gone.
  bool ReadAgain(Engine& engine, const QueryShape& shape, const KeySet& keys, std::size_t position);
  // One more row behind the last, out of a statement that stands on it.
  void Start(std::size_t begin, std::shared_ptr<const ColumnChoice> columns);
  void Append(const StatementRun& run, const QueryShape& shape);

  bool IsGone(std::size_t position) const { return rows_[position - begin_].gone; }
  std::int64_t Version(std::size_t position) const { return rows_[position - begin_].version; }
  void SetVersion(std::size_t position, std::int64_t version) {
    rows_[position - begin_].version = version;
  }
  // Where the row's columns start, and which stands where.
  Value* Cells(std::size_t position) {
    return cells_.data() + (position - begin_) * columns_->Fields.size();
  }
  int PositionOf(std::size_t field) const { return columns_->PositionOf[field]; }

  // As of when the rows are.
  Engine::Stamp Stamp;

 private:
  struct Row {
    std::int64_t version = 0;
    bool gone = true;
  };

  void TakeAll(Engine& engine, const QueryShape& shape, const KeySet& keys, StatementRun& run,
               bool isRange);
  void Take(const StatementRun& run, const QueryShape& shape, std::size_t row);

  std::size_t begin_ = 0;
  std::shared_ptr<const ColumnChoice> columns_;
  std::vector<Row> rows_;
  std::vector<Value> cells_;
};

}  // namespace kvi::jet
