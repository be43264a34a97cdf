#include <algorithm>

#include "platform/Spread.h"

// Rows out of sight.
namespace kvi {

void Spread::ShowRows(const std::function<bool(int place)>& shows) {
  const RowData* const active = activeRow_ > 0 ? Peek(activeRow_) : nullptr;
  BringBack();
  std::vector<std::unique_ptr<RowData>> shown;
  shown.push_back(std::move(rows_[0]));
  for (int place = 1; place <= MaxRows(); ++place) {
    auto& row = rows_[At(place)];
    if (shows(place))
      shown.push_back(std::move(row));
    else
      hidden_.push_back({place, std::move(row)});
  }
  rows_ = std::move(shown);
  StandOn(active);
}

void Spread::ShowAllRows() {
  if (hidden_.empty()) return;
  const RowData* const active = activeRow_ > 0 ? Peek(activeRow_) : nullptr;
  BringBack();
  StandOn(active);
}

// Rows that came or went meanwhile among those that show push the others on.
void Spread::BringBack() {
  std::vector<std::unique_ptr<RowData>> all;
  all.reserve(rows_.size() + hidden_.size());
  auto shown = rows_.begin();
  for (HiddenRow& hidden : hidden_) {
    while (all.size() < At(hidden.place) && shown != rows_.end())
      all.push_back(std::move(*shown++));
    all.push_back(std::move(hidden.data));
  }
  std::move(shown, rows_.end(), std::back_inserter(all));
  rows_ = std::move(all);
  hidden_.clear();
}

void Spread::StandOn(const RowData* row) {
  selection_.clear();
  Tell(Property::Cells);
  const int before = activeRow_;
  activeRow_ = row == nullptr ? 0 : RowOf(row);
  if (activeRow_ == 0) activeRow_ = std::min(1, MaxRows());
  if (activeRow_ == before) return;
  Tell(Property::ActiveCell);
  if (ActiveCellChanged) ActiveCellChanged();
}

}  // namespace kvi
