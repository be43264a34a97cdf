#include "frame/ProfitCenters.h"

#include <algorithm>

#include "base/RunTimeError.h"
#include "platform/Controls.h"

namespace kvi {

namespace {
constexpr int kSubscriptOutOfRange = 9;
constexpr int kInvalidPropertyValue = 380;
}  // namespace

void ProfitCenters::Clear() {
  numbers_.clear();
  for (ComboBox* combo : combos_) combo->Clear();
}

void ProfitCenters::Add(const std::string& name, int number) {
  if (Count() > kLastPosition) throw RunTimeError(kSubscriptOutOfRange);
  for (ComboBox* combo : combos_) combo->AddItem(name);
  numbers_.push_back(number);
}

int ProfitCenters::NumberAt(int position) const {
  if (position < 0 || position >= Count()) throw RunTimeError(kSubscriptOutOfRange);
  return numbers_[static_cast<std::size_t>(position)];
}

int ProfitCenters::PositionOf(int number) const {
  const auto found = std::ranges::find(numbers_, number);
  return found == numbers_.end() ? number : static_cast<int>(found - numbers_.begin());
}

void ProfitCenters::Select(int position) {
  if (position < 0 || position >= Count()) throw RunTimeError(kInvalidPropertyValue);
  for (ComboBox* combo : combos_) combo->SetListIndex(position);
}

}  // namespace kvi
