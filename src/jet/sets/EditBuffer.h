#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/Value.h"
#include "jet/sets/FieldList.h"

namespace kvi::jet {

// The values of a row being edited or added, until Update writes those that were set.
class EditBuffer {
 public:
  enum class Kind { None, Edit, New };

  void Open(Kind kind, const FieldList& fields);
  void Close() { kind_ = Kind::None; }
  Kind Is() const { return kind_; }

  void Set(const FieldList& fields, std::size_t field, const Value& value);
  // A new row is in here whole, of an edited one only what was set.
  bool Has(std::size_t field) const { return kind_ == Kind::New || isSet_[field] != 0; }
  const Value& operator[](std::size_t field) const { return values_[field]; }
  // The fields set, in the order of their first setting.
  const std::vector<std::size_t>& Changed() const { return changed_; }

  std::uint64_t Ticket = 0;  // the edit's hold on the write lock
  // The row's version when the edit began, and the line it began on.
  std::int64_t Version = 0;
  std::uint64_t Line = 0;
  // An Update of this buffer of which is not known whether it was done, by its transaction, and the
  // key that its new row got.
  std::uint64_t Unsure = 0;
  std::int64_t NewKey = 0;

 private:
  Kind kind_ = Kind::None;
  std::vector<Value> values_;
  std::vector<char> isSet_;
  std::vector<std::size_t> changed_;
};

}  // namespace kvi::jet
