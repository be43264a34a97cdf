#include <algorithm>

#include "base/Date.h"
#include "base/Format.h"
#include "sample/Stockroom.h"

namespace kvi {
namespace {

using stockroom::LockedLevel;
using stockroom::Part;
using stockroom::Purchase;

Date DateOf(long day) {
  return AddDays(Date{}, day);
}

// A few parts move all the time, some hardly ever.
int PurchaseCount(const Part& part, int perPart, Dice& dice) {
  const int roll = dice.Below(100);
  const int percent = roll < 15 ? 235 : roll < 60 ? 115 : roll < 90 ? 60 : 10;
  const int count = (perPart * percent * dice.Between(70, 130) + dice.Below(10000)) / 10000;
  return part.Active ? count : count / 3;
}

// What the part cost on a day: dearer over the years, a few cheaper, with some noise.
class PriceCourse {
 public:
  PriceCourse(int centsAtEnd, Dice& dice)
      : centsAtEnd_(centsAtEnd),
        permilleAYear_(dice.Percent(8) ? -dice.Between(0, 30) : dice.Between(15, 70)) {}

  int On(long day, Dice& dice) const {
    const long drift = permilleAYear_ * (LastPurchaseDay() - day) / 365;
    const long cents = centsAtEnd_ * (1000 - drift) / 1000 * dice.Between(988, 1012) / 1000;
    return static_cast<int>(std::max(1L, cents));
  }

 private:
  long centsAtEnd_;
  long permilleAYear_;
};

std::string Stamp(long day, int hour, int minute) {
  Date moment = DateOf(day);
  moment.hour = hour;
  moment.minute = minute;
  return Format(moment, "yymmdd") + Format(moment, "hhmmss").substr(0, 4);
}

// One part's year and a half: what is used runs down the level, what is bought brings it back to
// par, and each lock keeps the level of its day. Levels are held in counted units.
class Life {
 public:
  Life(Part& part, int purchases, Dice& dice)
      : part_(part),
        dice_(dice),
        course_(part.Cents, dice),
        perPurchased_(part.Pack->PerPurchased),
        start_(FirstPurchaseDay()),
        day_(start_),
        end_(LastPurchaseDay()) {
    const int cycle = std::max(1, part.Par - part.ReOrder);
    usedInAll_ = std::max(1L, long{purchases} * cycle * perPurchased_);
    level_ = long{dice.Between(part.ReOrder, part.Par)} * perPurchased_;
    price_ = purchases == 0 ? part.Cents : course_.On(start_, dice);
  }

  void Buy(long day, bool last, std::vector<Purchase>& purchases) {
    UseUntil(day);
    price_ = last ? part_.Cents : course_.On(day, dice_);
    const long missing = part_.Par * perPurchased_ - level_;
    const int quantity =
        static_cast<int>(std::max(1L, (missing + perPurchased_ / 2) / perPurchased_));
    level_ += quantity * perPurchased_;
    purchases.push_back(Entry(day, quantity));
  }

  void Lock(long day, std::vector<LockedLevel>& levels) {
    UseUntil(day);
    // Parts that were given up since were still counted in the first year.
    if (part_.Active || day <= LockDays()[1]) levels.push_back({&part_, day, Hundredths(), price_});
  }

  void End() {
    UseUntil(end_);
    // Some parts have just run low, and now and then one is issued before its receipt is booked.
    if (part_.Active && dice_.Percent(9))
      level_ = std::min<long>(level_, dice_.Below(part_.ReOrder * static_cast<int>(perPurchased_)));
    if (part_.Active && dice_.Percent(1)) level_ = -dice_.Between(1, 3);
    part_.OnHand = Hundredths();
  }

 private:
  // By a steady rate with some noise; the fractions of small users carry over.
  void UseUntil(long day) {
    if (day <= day_) return;
    const long due = usedInAll_ * (day - start_) / (end_ - start_) - usedSoFar_;
    usedSoFar_ += due;
    const long used = (due * dice_.Between(60, 140) + dice_.Below(100)) / 100;
    level_ = std::max(0L, level_ - used);
    day_ = day;
  }

  int Hundredths() const { return static_cast<int>(level_ * 100 / perPurchased_); }

  Purchase Entry(long day, int quantity) {
    Purchase entry{&part_, day, quantity, price_, dice_.Percent(88), quantity, price_, {}};
    const int hour = 7 + static_cast<int>(day % 9);
    const int minute = static_cast<int>(day * 7 % 60);
    const std::string stamp = Stamp(day, hour, minute);
    if (!entry.Received) {
      entry.TransNum = "Spdy:" + stamp;
      return entry;
    }
    if (dice_.Percent(6)) entry.OrderedQuantity += dice_.Between(1, 4);
    if (dice_.Percent(15)) entry.OrderedCents = std::max(1, price_ * 97 / 100);
    const int seconds = dice_.Between(10, 59);
    entry.TransNum =
        day % 7 == 3 ? "Invoice:" + std::to_string(30000 + day) : stamp + std::to_string(seconds);
    return entry;
  }

  Part& part_;
  Dice& dice_;
  PriceCourse course_;
  long perPurchased_;
  long start_, day_, end_;
  long usedInAll_;
  long usedSoFar_ = 0;
  long level_;
  int price_;
};

void LiveThrough(Part& part, int purchases, Stockroom& room, Dice& dice) {
  Life life(part, purchases, dice);
  const long first = FirstPurchaseDay();
  // A part that was given up has not been bought for a year.
  const long days = (LastPurchaseDay() - first) / (part.Active ? 1 : 3);
  auto lock = LockDays().begin();
  for (int i = 0; i < purchases; ++i) {
    const long day = WorkDay(first + (i * days + dice.Below(static_cast<int>(days))) / purchases);
    for (; lock != LockDays().end() && *lock < day; ++lock) life.Lock(*lock, room.Levels);
    life.Buy(day, i + 1 == purchases, room.Purchases);
  }
  for (; lock != LockDays().end(); ++lock) life.Lock(*lock, room.Levels);
  life.End();
}

}  // namespace

void LiveThroughPurchases(Stockroom& room, int purchasesPerPart, Dice& dice) {
  for (Part& part : room.Parts) {
    const int purchases = PurchaseCount(part, purchasesPerPart, dice);
    LiveThrough(part, purchases, room, dice);
  }
  std::ranges::stable_sort(room.Purchases, {}, &Purchase::Day);
  std::ranges::stable_sort(room.Levels, {}, &LockedLevel::Day);
  // One that was locked before it had a price.
  if (!room.Levels.empty()) room.Levels.front().Cents = 0;
}

}  // namespace kvi
