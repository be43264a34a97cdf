#include "jet/FieldList.h"

#include "base/RunTimeError.h"
#include "base/Text.h"

namespace kvi::jet {

std::size_t FieldList::Search(std::string_view name) const {
  for (std::size_t index = 0; index < fields_.size(); ++index)
    if (EqualsNoCase(fields_[index].Name, name)) {
      spellings_[SlotOf(name)] = {std::string(name), index};
      return index;
    }
  throw RunTimeError(3265, DescriptionOf(3265) + " (" + std::string(name) + ")");
}

}  // namespace kvi::jet
