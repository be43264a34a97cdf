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
    for (std::size_t probe = 0, slot = SlotOf(name); probe < kProbes; ++probe, ++slot) {
      const Spelling& spelling = spellings_[slot % kSlots];
      if (spelling.name == name && !name.empty()) return spelling.index;
      if (spelling.name.empty()) break;
    }
    return Search(name);
  }

 private:
  struct Spelling {
    std::string name;
    std::size_t index = 0;
  };

  // Sister fields differ in one letter only ("hi_qty" and "hu_qty"), so each letter counts.
  static std::size_t SlotOf(std::string_view name) {
    std::size_t slot = name.size();
    for (const char letter : name) slot = slot * 31 + static_cast<unsigned char>(letter);
    return slot % kSlots;
  }
  std::size_t Search(std::string_view name) const;
  void Remember(std::string_view name, std::size_t index) const;

  static constexpr std::size_t kSlots = 128, kProbes = 8;
  std::vector<FieldDef> fields_;
  mutable std::array<Spelling, kSlots> spellings_;
};

}  // namespace kvi::jet
