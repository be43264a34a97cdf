#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "jet/KeyedRows.h"

namespace kvi::jet {

// A search for a text in one field, "field = 'text'"; nothing for any other criterion.
struct FieldSearch {
  std::string Field, Text;
};
std::optional<FieldSearch> FieldSearchOf(std::string_view criterion);

// The first position of each text of one field, in the order of a set.
struct SearchedField {
  std::size_t Field = 0;
  std::unordered_map<std::string, std::size_t, TextHash, TextEqual> Positions;
};

}  // namespace kvi::jet
