#include "jet/sets/KeySet.h"

#include <algorithm>

namespace kvi::jet {

void KeySet::Append(std::int64_t key) {
  if (!keys_.empty() && key <= keys_.back()) ascending_ = false;
  keys_.push_back(key);
  if (deletedCount_ > 0) deleted_.push_back(false);
  if (index_.empty()) return;
  if (key > index_.back().first)  // as a new row's key mostly is
    index_.emplace_back(key, keys_.size() - 1);
  else
    index_.clear();
}

void KeySet::Delete(std::size_t position) {
  if (deletedCount_ == 0) deleted_.assign(keys_.size(), false);
  deleted_[position] = true;
  ++deletedCount_;
}

void KeySet::Truncate(std::size_t size) {
  for (std::size_t position = size; position < keys_.size(); ++position)
    if (IsDeleted(position)) Restore(position);
  keys_.resize(size);
  deleted_.resize(deletedCount_ > 0 ? size : 0);
  index_.clear();
}

void KeySet::Restore(std::size_t position) {
  deleted_[position] = false;
  --deletedCount_;
}

std::size_t KeySet::Find(std::int64_t key) const {
  const std::size_t position = Search(key);
  return position == kNone || IsDeleted(position) ? kNone : position;
}

std::size_t KeySet::Search(std::int64_t key) const {
  if (ascending_) {
    const auto found = std::lower_bound(keys_.begin(), keys_.end(), key);
    if (found == keys_.end() || *found != key) return kNone;
    return static_cast<std::size_t>(found - keys_.begin());
  }
  if (index_.empty()) {
    index_.reserve(keys_.size());
    for (std::size_t position = 0; position < keys_.size(); ++position)
      index_.emplace_back(keys_[position], position);
    std::sort(index_.begin(), index_.end());
  }
  const auto found = std::lower_bound(index_.begin(), index_.end(), std::pair{key, std::size_t{0}});
  return found == index_.end() || found->first != key ? kNone : found->second;
}

}  // namespace kvi::jet
