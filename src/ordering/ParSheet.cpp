#include "ordering/ParSheet.h"

#include <cmath>

#include "base/Format.h"
#include "base/Number.h"

namespace kvi {

namespace {

constexpr const char* kQuantityMask = "###0.00";

bool AreKnown(const Value& left, const Value& right) {
  return !left.IsNull() && !right.IsNull();
}

}  // namespace

std::string SuggestedOrder(const Value& optimal, const Value& onHand) {
  const double missing = optimal.Number() - onHand.Number();
  return AreKnown(optimal, onHand) && missing > 0 ? Format(missing, kQuantityMask) : "0.00";
}

bool IsAtPar(const Value& optimal, const Value& onHand) {
  return AreKnown(optimal, onHand) && optimal.Number() - onHand.Number() <= 0;
}

bool IsBelowReOrder(const Value& onHand, const Value& reOrder) {
  return AreKnown(onHand, reOrder) && onHand.Number() < reOrder.Number();
}

std::string RoundedUp(const std::string& quantity) {
  const double value = Val(quantity), whole = std::floor(value);
  return value > 0 && whole != value ? Format(whole + 1, "####0.00") : quantity;
}

std::string Adjusted(const std::string& quantity, double percent) {
  return Format(Val(quantity) * (percent / 100 + 1), "#####.00");
}

std::string LessOnOrder(const std::string& quantity, const std::string& onOrder) {
  const double rest = Val(quantity) - Val(onOrder);
  return rest < 0 ? "0.00" : Format(rest, kQuantityMask);
}

double LineTotal(const std::string& quantity, const std::string& cost) {
  return CDbl(quantity) * Val(cost);
}

bool GoesOverPar(const std::string& par, const std::string& level, const std::string& quantity) {
  return ValOf(Val(par)) < ValOf(Val(level) + Val(quantity));
}

}  // namespace kvi
