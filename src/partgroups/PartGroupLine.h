#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/Value.h"

namespace kvi {

// What the lines of part groups have in common for those who make, cost and print them.

// Stands in the description of a nested line: one that holds another part group, by its number.
inline constexpr const char* kNestedMark = "RECIPE IN RECIPE";
// May stand behind the number in a nested line.
inline constexpr const char* kNestedSuffix = " (part group #)";

// Whatever the blanks around the mark and its case.
bool IsNestedLine(std::string_view desc);

// The number by which a nested line's group is looked for. The cut is four characters short of the
// suffix, so a line that carries it finds no group and costs 0; only a bare number resolves.
std::string NestedNumber(const std::string& inv_id);

// A part's cost per how-used unit, by its fields; nothing when its units do not give one (no
// how-used quantity above 0, or a Null `hi_qty`). The first quotient goes through its text and
// keeps 15 digits. Raises 11 for a `hi_qty` of 0.
std::optional<double> CostPerUsedUnit(const Value& cost_per, const Value& hi_qty,
                                      const Value& hu_qty);

}  // namespace kvi
