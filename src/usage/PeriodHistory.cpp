#include "usage/PeriodHistory.h"

#include <algorithm>
#include <utility>

#include "base/Number.h"

namespace kvi {

PeriodHistory::PeriodHistory(std::vector<Date> periods, const std::vector<std::string>& partNumbers)
    : periods_(std::move(periods)) {
  for (const Date& period : periods_) days_.push_back(period.WithoutTime());
  for (const Date& day : days_) periodOfDay_.push_back(PeriodAt(day));
  for (std::size_t part = 0; part < partNumbers.size(); ++part)
    parts_[partNumbers[part]].push_back(part);
  levels_.resize(partNumbers.size() * periods_.size());
  flows_.resize(levels_.size());
}

const std::vector<std::size_t>* PeriodHistory::PartsOf(const Value& number) const {
  if (!number.IsText()) return nullptr;
  const auto found = parts_.find(number.AsText());
  return found == parts_.end() ? nullptr : &found->second;
}

std::optional<std::size_t> PeriodHistory::PeriodAt(const Date& date) const {
  const auto found = std::ranges::lower_bound(periods_, date);
  if (found == periods_.end() || *found != date) return std::nullopt;
  return static_cast<std::size_t>(found - periods_.begin());
}

void PeriodHistory::AddLevel(const Value& number, const Value& date, const Value& amount,
                             double price) {
  if (!date.IsDate()) return;
  if (!lastPeriod_ || periods_[*lastPeriod_] != date.AsDate())
    lastPeriod_ = PeriodAt(date.AsDate());
  if (!lastPeriod_) return;
  const auto* parts = PartsOf(number);
  if (parts == nullptr) return;
  for (const std::size_t part : *parts) {
    auto& level = levels_[At(part, *lastPeriod_)];
    if (!level) level = Level{amount, price};
  }
}

void PeriodHistory::AddPurchase(const Value& number, const Value& date, double quantity,
                                double price, bool ofThisProfitCenter) {
  if (!date.IsDate()) return;
  const auto* parts = PartsOf(number);
  if (parts == nullptr) return;
  const Date& day = date.AsDate();
  const auto end = std::ranges::lower_bound(periods_, day) - periods_.begin();
  const auto endByMoney = std::ranges::upper_bound(days_, day) - days_.begin();
  const auto periods = static_cast<std::ptrdiff_t>(periods_.size());
  for (const std::size_t part : *parts) {
    if (ofThisProfitCenter && end > 0 && end < periods)
      flows_[At(part, static_cast<std::size_t>(end - 1))].quantity += quantity;
    if (endByMoney > 0 && endByMoney < periods)
      flows_[At(part, static_cast<std::size_t>(endByMoney - 1))].money += quantity * price;
  }
}

const PeriodHistory::Level* PeriodHistory::LevelAt(std::size_t part, std::size_t period) const {
  const auto& level = levels_[At(part, period)];
  return level ? &*level : nullptr;
}

bool PeriodHistory::HasLevels(std::size_t period) const {
  for (std::size_t at = period; at < levels_.size(); at += periods_.size())
    if (levels_[at]) return true;
  return false;
}

double PeriodHistory::Purchased(std::size_t part, std::size_t pair) const {
  return flows_[At(part, pair)].quantity;
}

// Found by the day alone, which finds no row of a period that was locked with a time.
double PeriodHistory::ValueAt(std::size_t part, std::size_t period) const {
  if (!periodOfDay_[period]) return 0;
  const Level* level = LevelAt(part, *periodOfDay_[period]);
  return level == nullptr ? 0 : level->amount.Number() * level->price;
}

double PeriodHistory::Cost(std::size_t part, std::size_t pair) const {
  return ValueAt(part, pair) + flows_[At(part, pair)].money - ValueAt(part, pair + 1);
}

}  // namespace kvi
