#include "sample/SampleStockroom.h"

#include <cstdint>

#include "base/Date.h"
#include "sample/Stockroom.h"

namespace kvi {
namespace {

constexpr std::uint64_t kSeed = 20261031;

}  // namespace

long FirstPurchaseDay() {
  return DayNumber({2025, 5, 1});
}

long LastPurchaseDay() {
  return DayNumber({2026, 10, 31});
}

const std::vector<long>& LockDays() {
  static const std::vector<long> days{DayNumber({2025, 6, 30}),  DayNumber({2025, 9, 30}),
                                      DayNumber({2025, 12, 31}), DayNumber({2026, 3, 31}),
                                      DayNumber({2026, 6, 30}),  DayNumber({2026, 9, 30})};
  return days;
}

long WorkDay(long day) {
  const int weekday = Weekday(AddDays(Date{}, day));
  return weekday == 1 ? day + 1 : weekday == 7 ? day - 1 : day;
}

void FillSampleStockroom(jet::Database& database, const SampleOptions& options) {
  Dice dice(kSeed);
  Stockroom room;
  StockParts(room, options.Parts, dice);
  LiveThroughPurchases(room, options.PurchasesPerPart, dice);
  BuildPartGroups(room, dice);
  PlaceOrders(room, dice);
  RegisterInvoices(room, options.Invoices, dice);

  jet::WriteBatch batch(database);
  WriteStockroom(database, room);
  batch.Finish();
}

}  // namespace kvi
