#include "base/Format.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <vector>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"

namespace kvi {
namespace {

struct NumberMask {
  std::string prefix, suffix;
  std::size_t leastWhole = 0, leastDecimals = 0, mostDecimals = 0;
  bool grouped = false, hasPoint = false;
};

// Nothing when the mask has no place for a digit.
std::optional<NumberMask> ReadNumberMask(std::string_view mask) {
  const std::size_t first = mask.find_first_of("#0");
  if (first == std::string_view::npos) return std::nullopt;
  const std::size_t start = first > 0 && mask[first - 1] == '.' ? first - 1 : first;
  const std::string_view body = mask.substr(start, mask.find_first_not_of("#0.,", start) - start);
  const std::size_t point = std::min(body.find('.'), body.size());
  const std::string whole = Replace(body.substr(0, point), ",", "");
  const std::string_view decimals = body.substr(std::min(point + 1, body.size()));

  NumberMask result;
  result.prefix = mask.substr(0, start);
  result.suffix = mask.substr(start + body.size());
  result.grouped = whole.size() < point;
  result.hasPoint = point < body.size();
  result.leastWhole = whole.size() - std::min(whole.find('0'), whole.size());
  result.leastDecimals = decimals.find_last_of('0') + 1;
  result.mostDecimals = decimals.size();
  return result;
}

// The decimal digits of a number: 0.d1d2d3... times ten to the power of `point`.
struct Decimal {
  bool negative = false;
  std::string digits;
  long point = 0;
};

Decimal ToDecimal(double value) {
  if (!std::isfinite(value)) throw RunTimeError(6);
  char buffer[32];
  const char* end = std::to_chars(buffer, buffer + sizeof buffer, std::abs(value),
                                  std::chars_format::scientific, 14)
                        .ptr;
  const std::string_view text(buffer, static_cast<std::size_t>(end - buffer));
  const std::size_t e = text.find('e');
  Decimal decimal;
  decimal.negative = value < 0;
  decimal.digits = Replace(text.substr(0, e), ".", "");
  const std::size_t exponent = text[e + 1] == '+' ? e + 2 : e + 1;
  std::from_chars(buffer + exponent, end, decimal.point);
  ++decimal.point;
  return decimal;
}

// Half away from zero, in the decimal digits, so that 1.005 goes up as a person expects.
void Round(Decimal& decimal, std::size_t decimals) {
  const long keep = decimal.point + static_cast<long>(decimals);
  if (keep < 0) {
    decimal.digits.clear();
  } else if (static_cast<std::size_t>(keep) < decimal.digits.size()) {
    const bool up = decimal.digits[static_cast<std::size_t>(keep)] >= '5';
    decimal.digits.resize(static_cast<std::size_t>(keep));
    if (up) {
      auto digit = decimal.digits.rbegin();
      for (; digit != decimal.digits.rend() && *digit == '9'; ++digit) *digit = '0';
      if (digit != decimal.digits.rend()) {
        ++*digit;
      } else {
        decimal.digits.insert(0, 1, '1');
        ++decimal.point;
      }
    }
  }
  if (decimal.digits.find_first_not_of('0') == std::string::npos) decimal = {};
}

std::string WholeText(const Decimal& decimal, const NumberMask& mask) {
  const auto length = static_cast<std::size_t>(std::max(decimal.point, 0L));
  std::string whole = decimal.digits.substr(0, length);
  whole.append(length - whole.size(), '0');
  if (whole.size() < mask.leastWhole) whole.insert(0, mask.leastWhole - whole.size(), '0');
  if (mask.grouped)
    for (std::size_t at = whole.size(); at > 3;) whole.insert(at -= 3, 1, ',');
  return whole;
}

std::string DecimalsText(const Decimal& decimal, const NumberMask& mask) {
  std::string decimals(static_cast<std::size_t>(std::max(-decimal.point, 0L)), '0');
  const auto whole = static_cast<std::size_t>(std::max(decimal.point, 0L));
  if (whole < decimal.digits.size()) decimals += decimal.digits.substr(whole);
  decimals.resize(mask.mostDecimals, '0');
  while (decimals.size() > mask.leastDecimals && decimals.back() == '0') decimals.pop_back();
  return decimals;
}

// A text that is a number from end to end. One that no double holds is no number here, so that
// a long code such as "1E999" stays as it is.
std::optional<double> WhollyNumeric(std::string_view text) {
  const std::string trimmed = Trim(text);
  std::string_view number = trimmed;
  if (number.starts_with('+')) number.remove_prefix(1);
  if (number.find_first_not_of("0123456789.eE+-") != std::string_view::npos) return std::nullopt;
  double value = 0;
  const char* end = number.data() + number.size();
  const auto [read, error] = std::from_chars(number.data(), end, value);
  if (error != std::errc() || read != end) return std::nullopt;
  return value;
}

// A run of one letter of a date mask, "AM/PM", or a single character that stands for itself.
struct DatePart {
  enum Kind { kLiteral, kYear, kMonth, kDay, kHour, kMinute, kSecond, kHalf } kind;
  std::string_view text;
};

DatePart NextDatePart(std::string_view mask) {
  if (mask.size() >= 5 && EqualsNoCase(mask.substr(0, 5), "AM/PM"))
    return {DatePart::kHalf, mask.substr(0, 5)};
  constexpr std::string_view kLetters = "ymdhns";
  constexpr DatePart::Kind kKinds[] = {DatePart::kYear, DatePart::kMonth,  DatePart::kDay,
                                       DatePart::kHour, DatePart::kMinute, DatePart::kSecond};
  const std::string lower = LCase(mask.substr(0, 1));
  const std::size_t letter = kLetters.find(lower);
  if (letter == std::string_view::npos) return {DatePart::kLiteral, mask.substr(0, 1)};
  const char both[] = {lower[0], UCase(lower)[0]};
  const std::size_t end = mask.find_first_not_of(std::string_view(both, 2));
  return {kKinds[letter], mask.substr(0, end)};
}

std::vector<DatePart> ReadDateMask(std::string_view mask) {
  std::vector<DatePart> parts;
  while (!mask.empty()) {
    parts.push_back(NextDatePart(mask));
    mask.remove_prefix(parts.back().text.size());
  }
  // The same letter stands for months and minutes; the neighbour tells.
  DatePart* before = nullptr;
  for (DatePart& part : parts) {
    if (part.kind == DatePart::kLiteral) continue;
    if (before && before->kind == DatePart::kHour && part.kind == DatePart::kMonth)
      part.kind = DatePart::kMinute;
    if (before && before->kind == DatePart::kMonth && part.kind == DatePart::kSecond)
      before->kind = DatePart::kMinute;
    before = &part;
  }
  return parts;
}

std::string Digits(int number, std::size_t least) {
  std::string text = Str(number);
  if (text.size() < least) text.insert(0, least - text.size(), '0');
  return text;
}

// A month or a day: one or two letters ask for its number, three for the short name, more for all.
std::string NumberOrName(int number, std::size_t letters, std::string_view name) {
  if (letters <= 2) return Digits(number, letters);
  return letters == 3 ? Left(name, 3) : std::string(name);
}

std::string DatePartText(const Date& date, const DatePart& part, bool twelveHours) {
  static constexpr std::string_view kMonths[] = {"January",   "February", "March",    "April",
                                                 "May",       "June",     "July",     "August",
                                                 "September", "October",  "November", "December"};
  static constexpr std::string_view kDays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                               "Thursday", "Friday", "Saturday"};
  const std::size_t letters = part.text.size();
  switch (part.kind) {
    case DatePart::kYear:
      return letters <= 2 ? Digits(date.year % 100, 2) : Digits(date.year, 4);
    case DatePart::kMonth:
      return NumberOrName(date.month, letters, kMonths[(date.month + 11) % 12]);
    case DatePart::kDay:
      return NumberOrName(date.day, letters, kDays[Weekday(date) - 1]);
    case DatePart::kHour:
      return Digits(twelveHours ? (date.hour + 11) % 12 + 1 : date.hour, letters);
    case DatePart::kMinute:
      return Digits(date.minute, letters);
    case DatePart::kSecond:
      return Digits(date.second, letters);
    case DatePart::kHalf: {
      const std::string half = date.hour < 12 ? "AM" : "PM";
      return part.text[0] == 'A' ? half : LCase(half);
    }
    case DatePart::kLiteral:
      break;
  }
  return std::string(part.text);
}

}  // namespace

std::string Format(double value, std::string_view mask) {
  if (mask.empty()) return Str(value);
  const std::optional<NumberMask> read = ReadNumberMask(mask);
  if (!read) return std::string(mask);
  Decimal decimal = ToDecimal(value);
  Round(decimal, read->mostDecimals);
  std::string text = decimal.negative ? "-" : "";
  text += read->prefix + WholeText(decimal, *read);
  if (read->hasPoint) text += "." + DecimalsText(decimal, *read);
  return text + read->suffix;
}

std::string Format(const Date& date, std::string_view mask) {
  if (mask.empty()) return Str(date);
  const std::vector<DatePart> parts = ReadDateMask(mask);
  const bool twelveHours =
      std::ranges::find(parts, DatePart::kHalf, &DatePart::kind) != parts.end();
  std::string text;
  for (const DatePart& part : parts) text += DatePartText(date, part, twelveHours);
  return text;
}

std::string Format(const Value& value, std::string_view mask) {
  if (mask.empty() || value.IsNull()) return value.Text();
  const bool forNumbers = mask.find_first_of("#0") != std::string_view::npos;
  if (!forNumbers) {
    if (value.IsDate()) return Format(value.AsDate(), mask);
    const std::optional<Date> date = value.IsText() ? CDate(value.AsText()) : std::nullopt;
    return date ? Format(*date, mask) : value.Text();
  }
  if (value.IsDate()) return value.Text();
  if (!value.IsText()) return Format(value.AsNumber(), mask);
  const std::optional<double> number = WhollyNumeric(value.AsText());
  return number ? Format(*number, mask) : value.Text();
}

}  // namespace kvi
