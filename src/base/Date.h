#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace kvi {

// A calendar date with an optional time of day, without time zone. Kept in databases as ISO text
// ("2026-03-01" or "2026-03-01 14:05:00"), so that any tool reads it and text order is time order.
struct Date {
  int year = 1899, month = 12, day = 30;
  int hour = 0, minute = 0, second = 0;

  auto operator<=>(const Date&) const = default;
  bool HasTime() const { return hour != 0 || minute != 0 || second != 0; }
  Date WithoutTime() const { return Date{year, month, day}; }
};

// Whether year 100..9999, month, day and time exist in the calendar.
bool IsValid(const Date& date);

// Days since 1899-12-30, the classic day count; AddDays is its inverse step.
long DayNumber(const Date& date);
Date AddDays(const Date& date, long days);
// A count of days whose fraction is the time of day; nothing when it is far outside the calendar.
std::optional<Date> FromDayCount(double days);
// 1 Sunday to 7 Saturday.
int Weekday(const Date& date);

std::string IsoText(const Date& date);
std::optional<Date> FromIsoText(std::string_view text);

// What a person types: "m/d/yyyy", "m/d/yy" (below 30 is 20yy, else 19yy), "m-d-yyyy", ISO, or with
// the month's English name ("1-Mar-2026", "March 1, 2026"), each with an optional "h:mm", "h:mm:ss"
// and AM/PM behind a blank. A first number that can be no month is the day ("13/1/2026"). A day
// without a year ("3/1") is one of `thisYear`, if that is given. Nothing when it is no date.
std::optional<Date> CDate(std::string_view text, int thisYear = 0);

// The general text form: "3/1/2026", or "3/1/2026 2:05:00 PM" with a time.
std::string Str(const Date& date);

}  // namespace kvi
