#include "partgroups/PartGroupLine.h"

#include "base/Number.h"
#include "base/Text.h"

namespace kvi {

bool IsNestedLine(std::string_view desc) {
  return EqualsNoCase(Trim(desc), kNestedMark);
}

std::string NestedNumber(const std::string& inv_id) {
  constexpr std::size_t kCut = 11;
  const bool marked = inv_id.find(kNestedSuffix) != std::string::npos;
  return marked ? Left(inv_id, Len(inv_id) - kCut) : inv_id;
}

std::optional<double> CostPerUsedUnit(const Value& cost_per, const Value& hi_qty,
                                      const Value& hu_qty) {
  if (hu_qty.Number() <= 0 || hi_qty.IsNull()) return std::nullopt;
  if (cost_per.IsNull()) return 0;
  const double inventoried = ValOf(Divide(cost_per.Number(), hi_qty.Number()));
  return Divide(inventoried, ValOf(hu_qty));
}

}  // namespace kvi
