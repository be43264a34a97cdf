#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace kvi::jet {

// The rows of a dynaset by their keys, in the set's order. A deleted row keeps its place, so that
// the current row can stand on it and positions never shift.
class KeySet {
 public:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  std::size_t Size() const { return keys_.size(); }
  std::size_t Live() const { return keys_.size() - deletedCount_; }
  std::int64_t operator[](std::size_t position) const { return keys_[position]; }
  bool IsAscending() const { return ascending_; }
  bool IsDeleted(std::size_t position) const { return deletedCount_ > 0 && deleted_[position]; }

  void Append(std::int64_t key);
  void Delete(std::size_t position);
  // What was appended or deleted by a transaction that was taken back.
  void Truncate(std::size_t size);
  void Restore(std::size_t position);
  // The position of a key that is in the set and not deleted, else kNone.
  std::size_t Find(std::int64_t key) const;

 private:
  std::size_t Search(std::int64_t key) const;

  std::vector<std::int64_t> keys_;
  std::vector<bool> deleted_;
  std::size_t deletedCount_ = 0;
  bool ascending_ = true;  // then the keys are their own index
  mutable std::vector<std::pair<std::int64_t, std::size_t>> index_;
};

}  // namespace kvi::jet
