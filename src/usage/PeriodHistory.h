#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "base/Date.h"
#include "base/Value.h"
#include "jet/KeyedRows.h"

namespace kvi {

// The locked levels and the purchases of the parts of a list, sorted into the locked periods in one
// pass over each table. Parts and periods are counted from 0, in the list's and in date order; pair
// p lies between the periods p and p + 1. Quantities are in how-purchased units.
//
// Two figures stand beside each other and need not agree to the cent: quantities go by the profit
// center's purchases after the first day up to the second, money by those of all profit centers
// from the first day up to before the second, at their price.
class PeriodHistory {
 public:
  struct Level {
    Value amount;
    double price = 0;
  };

  PeriodHistory() = default;
  PeriodHistory(std::vector<Date> periods, const std::vector<std::string>& partNumbers);

  // The first row of a part and a date holds; of a profit center's rows before those of none.
  void AddLevel(const Value& number, const Value& date, const Value& amount, double price);
  void AddPurchase(const Value& number, const Value& date, double quantity, double price,
                   bool ofThisProfitCenter);

  const std::vector<Date>& Periods() const { return periods_; }
  std::size_t PairCount() const { return periods_.empty() ? 0 : periods_.size() - 1; }
  // Nothing where the part has no row of the period.
  const Level* LevelAt(std::size_t part, std::size_t period) const;
  bool HasLevels(std::size_t period) const;
  double Purchased(std::size_t part, std::size_t pair) const;
  // What the usage of a part cost between two periods: value at the start and purchases, less the
  // value at the end.
  double Cost(std::size_t part, std::size_t pair) const;

 private:
  struct Flow {
    double quantity = 0;
    double money = 0;
  };

  std::size_t At(std::size_t part, std::size_t period) const {
    return part * periods_.size() + period;
  }
  std::optional<std::size_t> PeriodAt(const Date& date) const;
  double ValueAt(std::size_t part, std::size_t period) const;
  const std::vector<std::size_t>* PartsOf(const Value& number) const;

  std::vector<Date> periods_;
  std::vector<Date> days_;  // the periods' without a time, by which money goes
  std::vector<std::optional<std::size_t>> periodOfDay_;
  std::optional<std::size_t> lastPeriod_;  // rows of one date come together
  std::unordered_map<std::string, std::vector<std::size_t>, jet::TextHash, jet::TextEqual> parts_;
  std::vector<std::optional<Level>> levels_;  // by part and period
  std::vector<Flow> flows_;                   // by part and pair
};

}  // namespace kvi
