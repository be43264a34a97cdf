#pragma once

#include <cstddef>
#include <string>

#include "jet/Database.h"

namespace kvi {

inline constexpr std::size_t kLongestPartNumber = 15;

// Carries a part's new number into the parts, the part groups' lines and the open orders, each by
// a statement of its own: one that fails raises and leaves the earlier ones done. Purchases and
// locked periods keep the old number. A part group's line that holds another group's number is
// changed too where that number equals the old one.
void ChangePartNumber(jet::Database& database, const std::string& oldNumber,
                      const std::string& newNumber);

}  // namespace kvi
