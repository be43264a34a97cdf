#include "base/Date.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <vector>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"

namespace kvi {
namespace {

constexpr std::chrono::sys_days kDayZero{std::chrono::year{1899} / 12 / 30};
constexpr std::chrono::sys_days kFirstDay{std::chrono::year{100} / 1 / 1};
constexpr std::chrono::sys_days kLastDay{std::chrono::year{9999} / 12 / 31};

std::chrono::year_month_day CalendarDay(const Date& date) {
  return std::chrono::year{date.year} / static_cast<unsigned>(date.month) /
         static_cast<unsigned>(date.day);
}

// Takes one to `most` digits off the front; -1 when there is none, or one more follows.
int TakeNumber(std::string_view& text, std::size_t most) {
  const std::size_t end = std::min(text.find_first_not_of("0123456789"), text.size());
  if (end == 0 || end > most) return -1;
  int number = 0;
  std::from_chars(text.data(), text.data() + end, number);
  text.remove_prefix(end);
  return number;
}

bool TakeSign(std::string_view& text, char sign) {
  if (!text.starts_with(sign)) return false;
  text.remove_prefix(1);
  return true;
}

// One of the numbers of a day, or the month by its name.
struct DayPart {
  int number;
  std::size_t digits;  // 0 for a name
};

// A month by its English name or the first three letters of it, whatever the case; 0 for another
// word.
int MonthNamed(std::string_view word) {
  constexpr std::string_view kNames[] = {"JANUARY",   "FEBRUARY", "MARCH",    "APRIL",
                                         "MAY",       "JUNE",     "JULY",     "AUGUST",
                                         "SEPTEMBER", "OCTOBER",  "NOVEMBER", "DECEMBER"};
  const std::string name = UCase(word);
  for (int month = 1; month <= 12; ++month) {
    const std::string_view whole = kNames[month - 1];
    if (name == whole || name == whole.substr(0, 3)) return month;
  }
  return 0;
}

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

std::optional<DayPart> TakeDayPart(std::string_view& text) {
  const std::string_view before = text;
  if (!text.empty() && IsLetter(text[0])) {
    const auto end = std::ranges::find_if_not(text, IsLetter) - text.begin();
    text.remove_prefix(static_cast<std::size_t>(end));
    const int month = MonthNamed(before.substr(0, static_cast<std::size_t>(end)));
    return month > 0 ? std::optional(DayPart{month, 0}) : std::nullopt;
  }
  const int number = TakeNumber(text, 4);
  if (number < 0) return std::nullopt;
  return DayPart{number, before.size() - text.size()};
}

// "/" or "-", the same between all parts; with a month's name also blanks and a comma.
bool TakeSeparator(std::string_view& text, char& separator, bool named) {
  if (text[0] == '/' || text[0] == '-') {
    if (separator != 0 && separator != text[0]) return false;
    separator = text[0];
    text.remove_prefix(1);
    return true;
  }
  const std::size_t end = std::min(text.find_first_not_of(", "), text.size());
  text.remove_prefix(end);
  return named && separator == 0 && end > 0;
}

// The month where it has no name: the first number, unless only the second can be one.
bool PutInOrder(std::vector<DayPart> parts, int thisYear, Date& date) {
  const auto named = std::ranges::find(parts, std::size_t{0}, &DayPart::digits);
  const bool byName = named != parts.end();
  if (byName) {
    date.month = named->number;
    parts.erase(named);
  }
  const bool needsYear = parts.size() == (byName ? 1U : 2U);
  if (needsYear && thisYear > 0) parts.push_back({thisYear, 4});
  if (parts.size() != (byName ? 2U : 3U)) return false;

  const auto year = parts.front().digits > 2 ? parts.begin() : parts.end() - 1;
  date.year = year->number;
  if (year->digits <= 2) date.year += date.year < 30 ? 2000 : 1900;
  parts.erase(year);
  if (std::ranges::any_of(parts, [](const DayPart& part) { return part.digits > 2; })) return false;
  date.day = parts.back().number;
  if (!byName) date.month = parts.front().number;
  if (!byName && date.month > 12 && date.day <= 12) std::swap(date.month, date.day);
  return true;
}

bool ReadDay(std::string_view text, int thisYear, Date& date) {
  const bool named = std::ranges::any_of(text, IsLetter);
  std::vector<DayPart> parts;
  char separator = 0;
  do {
    const auto part = TakeDayPart(text);
    if (!part) return false;
    parts.push_back(*part);
  } while (!text.empty() && TakeSeparator(text, separator, named));
  return text.empty() && PutInOrder(std::move(parts), thisYear, date);
}

// "h:mm", "h:mm:ss", each with AM or PM behind it if the hour is one of twelve.
bool TakeTime(std::string_view& text, Date& date) {
  date.hour = TakeNumber(text, 2);
  if (date.hour < 0 || !TakeSign(text, ':')) return false;
  date.minute = TakeNumber(text, 2);
  if (TakeSign(text, ':')) date.second = TakeNumber(text, 2);
  if (text.empty()) return true;

  const std::string half = UCase(LTrim(text));
  if ((half != "AM" && half != "PM") || date.hour < 1 || date.hour > 12) return false;
  date.hour = date.hour % 12 + (half == "PM" ? 12 : 0);
  text = {};
  return true;
}

}  // namespace

bool IsValid(const Date& date) {
  return date.year >= 100 && date.year <= 9999 && date.month >= 1 && date.day >= 1 &&
         CalendarDay(date).ok() && date.hour >= 0 && date.hour < 24 && date.minute >= 0 &&
         date.minute < 60 && date.second >= 0 && date.second < 60;
}

long DayNumber(const Date& date) {
  return (std::chrono::sys_days{CalendarDay(date)} - kDayZero).count();
}

Date AddDays(const Date& date, long days) {
  const std::chrono::sys_days day{CalendarDay(date)};
  if (days < (kFirstDay - day).count() || days > (kLastDay - day).count()) throw RunTimeError(6);
  const std::chrono::year_month_day moved{day + std::chrono::days{days}};
  Date result = date;
  result.year = static_cast<int>(moved.year());
  result.month = static_cast<int>(static_cast<unsigned>(moved.month()));
  result.day = static_cast<int>(static_cast<unsigned>(moved.day()));
  return result;
}

std::optional<Date> FromDayCount(double days) {
  constexpr long kSecondsOfDay = 24L * 60 * 60;
  if (!(days >= static_cast<double>((kFirstDay - kDayZero).count()) &&
        days < static_cast<double>((kLastDay - kDayZero).count())))
    return std::nullopt;
  const double day = std::floor(days);
  const long seconds = std::lround((days - day) * kSecondsOfDay);
  Date date = AddDays(Date{}, static_cast<long>(day) + seconds / kSecondsOfDay);
  date.hour = static_cast<int>(seconds % kSecondsOfDay / 3600);
  date.minute = static_cast<int>(seconds % 3600 / 60);
  date.second = static_cast<int>(seconds % 60);
  return date;
}

int Weekday(const Date& date) {
  const std::chrono::weekday day{std::chrono::sys_days{CalendarDay(date)}};
  return static_cast<int>(day.c_encoding()) + 1;
}

std::string IsoText(const Date& date) {
  char buffer[80];
  int length =
      std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d", date.year, date.month, date.day);
  if (date.HasTime()) {
    length += std::snprintf(buffer + length, sizeof buffer - static_cast<std::size_t>(length),
                            " %02d:%02d:%02d", date.hour, date.minute, date.second);
  }
  return {buffer, static_cast<std::size_t>(length)};
}

std::optional<Date> FromIsoText(std::string_view text) {
  constexpr std::string_view kShape = "####-##-## ##:##:##";
  if (text.size() != 10 && text.size() != kShape.size()) return std::nullopt;
  std::array<int, 6> numbers{};
  std::size_t at = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool digit = text[i] >= '0' && text[i] <= '9';
    if (kShape[i] == '#' ? !digit : text[i] != kShape[i]) return std::nullopt;
    if (digit)
      numbers[at] = numbers[at] * 10 + (text[i] - '0');
    else
      ++at;
  }
  const Date date{numbers[0], numbers[1], numbers[2], numbers[3], numbers[4], numbers[5]};
  return IsValid(date) ? std::optional(date) : std::nullopt;
}

std::optional<Date> CDate(std::string_view text, int thisYear) {
  const std::string trimmed = Trim(text);
  const std::string_view all = trimmed;
  const std::size_t blank = all.rfind(' ', all.find(':'));
  const bool hasTime = all.find(':') != std::string_view::npos;
  if (hasTime && blank == std::string_view::npos) return std::nullopt;
  Date date;
  if (!ReadDay(RTrim(hasTime ? all.substr(0, blank) : all), thisYear, date)) return std::nullopt;
  if (hasTime) {
    std::string_view time = all.substr(blank + 1);
    if (!TakeTime(time, date)) return std::nullopt;
  }
  return IsValid(date) ? std::optional(date) : std::nullopt;
}

std::string Str(const Date& date) {
  std::string text = Str(date.month) + "/" + Str(date.day) + "/" + Str(date.year);
  if (!date.HasTime()) return text;
  char time[48];
  const int hour = date.hour % 12 == 0 ? 12 : date.hour % 12;
  std::snprintf(time, sizeof time, " %d:%02d:%02d %s", hour, date.minute, date.second,
                date.hour < 12 ? "AM" : "PM");
  return text + time;
}

}  // namespace kvi
