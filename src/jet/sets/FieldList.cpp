#include "jet/sets/FieldList.h"

#include "base/RunTimeError.h"
#include "base/Text.h"

namespace kvi::jet {

std::size_t FieldList::Search(std::string_view name) const {
  for (std::size_t index = 0; index < fields_.size(); ++index)
    if (EqualsNoCase(fields_[index].Name, name)) {
      Remember(name, index);
      return index;
    }
  throw RunTimeError(3265, DescriptionOf(3265) + " (" + std::string(name) + ")");
}

void FieldList::Remember(std::string_view name, std::size_t index) const {
  std::size_t slot = SlotOf(name);
  for (std::size_t probe = 1; probe < kProbes && !spellings_[slot % kSlots].name.empty(); ++probe)
    ++slot;
  spellings_[slot % kSlots] = {std::string(name), index};
}

}  // namespace kvi::jet
