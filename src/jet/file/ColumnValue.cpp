#include "jet/file/ColumnValue.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdio>

#include "base/Date.h"

namespace kvi::jetfile {
namespace {

std::optional<Value> NumberOf(std::string_view text) {
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

// Digits with a point before the last `scale` of them.
std::optional<Value> NumberOf(bool negative, std::string digits, std::size_t scale) {
  if (digits.size() <= scale) digits.insert(0, scale + 1 - digits.size(), '0');
  if (scale > 0) digits.insert(digits.size() - scale, ".");
  return NumberOf((negative ? "-" : "") + digits);
}

std::optional<Value> CurrencyOf(std::uint64_t bits) {
  constexpr std::size_t kPlaces = 4;
  const bool negative = bits >> 63 != 0;
  return NumberOf(negative, std::to_string(negative ? ~bits + 1 : bits), kPlaces);
}

// A sign and four words, the most significant one first.
std::optional<Value> NumericOf(Bytes bytes, std::size_t scale) {
  constexpr std::uint64_t kDigit = 10;
  std::array<std::uint32_t, 4> words{};
  for (std::size_t i = 0; i < words.size(); ++i) words[i] = bytes.U32(1 + 4 * i);
  std::string digits;
  while (std::ranges::any_of(words, [](std::uint32_t word) { return word != 0; })) {
    std::uint64_t rest = 0;
    for (std::uint32_t& word : words) {
      rest = rest << 32 | word;
      word = static_cast<std::uint32_t>(rest / kDigit);
      rest %= kDigit;
    }
    digits.insert(digits.begin(), static_cast<char>('0' + rest));
  }
  return NumberOf(bytes.U8(0) != 0, digits, scale);
}

std::optional<Value> SingleOf(float number) {
  if (!std::isfinite(number)) return std::nullopt;
  char text[32];
  return NumberOf({text, std::to_chars(text, text + sizeof text, number).ptr});
}

// The whole part counts days, also below zero; the fraction is the time and always counts forward.
std::optional<Value> DateOf(double days) {
  constexpr double kFirst = -657434, kBehindLast = 2958466;
  constexpr long kSecondsOfDay = 24L * 60 * 60;
  if (!(days > kFirst - 1 && days < kBehindLast)) return std::nullopt;
  const double whole = std::trunc(days);
  const long seconds = std::lround(std::fabs(days - whole) * kSecondsOfDay);
  const long day = static_cast<long>(whole) + seconds / kSecondsOfDay;
  if (day >= static_cast<long>(kBehindLast)) return std::nullopt;
  Date date = AddDays(Date{}, day);
  date.hour = static_cast<int>(seconds % kSecondsOfDay / 3600);
  date.minute = static_cast<int>(seconds % 3600 / 60);
  date.second = static_cast<int>(seconds % 60);
  return date;
}

std::string GuidOf(Bytes bytes) {
  char text[40];
  int end = std::snprintf(text, sizeof text, "{%08X-%04X-%04X-", bytes.U32(0), bytes.U16(4),
                          bytes.U16(6));
  for (std::size_t i = 8; i < 16; ++i)
    end += std::snprintf(text + end, sizeof text - static_cast<std::size_t>(end),
                         i == 9 ? "%02X-" : "%02X", bytes.U8(i));
  return std::string(text) + "}";
}

}  // namespace

std::optional<Value> ValueOf(const Column& column, Bytes bytes, const TextDecoder& text) {
  switch (column.Type) {
    case ColumnType::Byte:
      return Value(std::int64_t{bytes.U8(0)});
    case ColumnType::Integer:
      return Value(std::int64_t{std::bit_cast<std::int16_t>(bytes.U16(0))});
    case ColumnType::Long:
      return Value(std::int64_t{std::bit_cast<std::int32_t>(bytes.U32(0))});
    case ColumnType::Currency:
      return CurrencyOf(bytes.U64(0));
    case ColumnType::Single:
      return SingleOf(std::bit_cast<float>(bytes.U32(0)));
    case ColumnType::Double: {
      const auto number = std::bit_cast<double>(bytes.U64(0));
      return std::isfinite(number) ? std::optional<Value>(number) : std::nullopt;
    }
    case ColumnType::Date:
      return DateOf(std::bit_cast<double>(bytes.U64(0)));
    case ColumnType::Numeric:
      return NumericOf(bytes, column.Scale);
    case ColumnType::Guid:
      return Value(GuidOf(bytes));
    case ColumnType::Text:
      return Value(text.Value(bytes));
    default:
      return Value(bytes.Text());
  }
}

}  // namespace kvi::jetfile
