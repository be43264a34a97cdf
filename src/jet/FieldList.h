#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "jet/TableDef.h"

namespace kvi::jet {

// The fields of a set, found by name without regard to case. A name is asked for thousands of times
// in one walk, so the spellings asked for last are remembered.
class FieldList {
 public:
  explicit FieldList(std::vector<FieldDef> fields) : fields_(std::move(fields)) {}

  const std::vector<FieldDef>& All() const { return fields_; }
  std::size_t Size() const { return fields_.size(); }
  const FieldDef& operator[](std::size_t index) const { return fields_[index]; }

  // Raises 3265 for an unknown name.
  std::size_t Find(std::string_view name) const {
    const Spelling& last = spellings_[SlotOf(name)];
    return last.name == name && !name.empty() ? last.index : Search(name);
  }

 private:
  struct Spelling {
    std::string name;
    std::size_t index = 0;
  };

  static std::size_t SlotOf(std::string_view name) {
    if (name.empty()) return 0;
    const auto code = [&](std::size_t at) { return static_cast<unsigned char>(name[at]); };
    return (name.size() * 31U + code(0) * 7U + code(name.size() / 2) * 13U +
            code(name.size() - 1)) %
           kSlots;
  }
  std::size_t Search(std::string_view name) const;

  static constexpr std::size_t kSlots = 128;
  std::vector<FieldDef> fields_;
  mutable std::array<Spelling, kSlots> spellings_;
};

}  // namespace kvi::jet
