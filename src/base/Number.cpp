#include "base/Number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <system_error>

#include "base/RunTimeError.h"

namespace kvi {
namespace {

// Walks a text as Val sees it: without blanks, tabs and line ends.
class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) { SkipBlanks(); }

  // Takes the next character when it is one of `wanted`; 0 when it is not.
  char Take(std::string_view wanted) {
    if (rest_.empty() || wanted.find(rest_.front()) == std::string_view::npos) return 0;
    const char taken = rest_.front();
    rest_.remove_prefix(1);
    SkipBlanks();
    return taken;
  }

  bool AtEnd() const { return rest_.empty(); }

  // Appends the digits that follow; whether there was any.
  bool TakeDigits(std::string& to) {
    bool any = false;
    while (const char digit = Take("0123456789")) {
      to += digit;
      any = true;
    }
    return any;
  }

 private:
  void SkipBlanks() {
    const std::size_t next = rest_.find_first_not_of(" \t\r\n");
    rest_.remove_prefix(next == std::string_view::npos ? rest_.size() : next);
  }

  std::string_view rest_;
};

struct Parts {
  bool negative = false;
  std::string mantissa;
  std::string exponent;  // with its sign when negative; empty when there is none
  bool complete = true;  // digits where digits belong
};

Parts NumericPrefix(Reader& reader) {
  Parts parts;
  parts.negative = reader.Take("+-") == '-';
  bool any = reader.TakeDigits(parts.mantissa);
  if (reader.Take(".")) {
    parts.mantissa += '.';
    any |= reader.TakeDigits(parts.mantissa);
  }
  if (!any) return {.mantissa = "0", .complete = false};
  if (reader.Take("EeDd")) {
    if (reader.Take("+-") == '-') parts.exponent = "-";
    parts.complete = reader.TakeDigits(parts.exponent);
    if (!parts.complete) parts.exponent.clear();
  }
  return parts;
}

// Whether a number that no double holds is too large, not too close to zero.
bool IsTooLarge(const Parts& parts) {
  const std::size_t point = std::min(parts.mantissa.find('.'), parts.mantissa.size());
  const std::size_t leading = parts.mantissa.find_first_not_of("0.");
  std::int64_t exponent = 0;
  const char* end = parts.exponent.data() + parts.exponent.size();
  if (std::from_chars(parts.exponent.data(), end, exponent).ec == std::errc::result_out_of_range)
    return parts.exponent.front() != '-';
  return exponent + static_cast<std::int64_t>(point) > static_cast<std::int64_t>(leading);
}

}  // namespace

std::optional<double> TypedNumber(std::string_view text) {
  Reader reader(text);
  std::string number;
  if (reader.Take("+-") == '-') number = "-";
  if (reader.Take("$") && number.empty() && reader.Take("+-") == '-') number = "-";
  std::string digits;
  bool any = reader.TakeDigits(digits);
  if (any && digits.size() <= 3) {
    while (reader.Take(",")) {
      std::string thousand;
      reader.TakeDigits(thousand);
      if (thousand.size() != 3) return std::nullopt;
      digits += thousand;
    }
  }
  if (reader.Take(".")) {
    digits += '.';
    any = reader.TakeDigits(digits) || any;
  }
  if (!any || !reader.AtEnd()) return std::nullopt;
  return Val(number + digits);
}

bool IsReadWhole(std::string_view text) {
  Reader reader(text);
  return NumericPrefix(reader).complete && reader.AtEnd();
}

double Val(std::string_view text) {
  Reader reader(text);
  const Parts parts = NumericPrefix(reader);
  std::string number = parts.mantissa;
  if (!parts.exponent.empty()) number += "e" + parts.exponent;
  double value = 0;
  if (std::from_chars(number.data(), number.data() + number.size(), value).ec ==
      std::errc::result_out_of_range) {
    if (IsTooLarge(parts)) throw RunTimeError(6);
    return 0;
  }
  return parts.negative && value != 0 ? -value : value;
}

std::string Str(double value) {
  if (!std::isfinite(value)) throw RunTimeError(6);
  if (value == 0) return "0";  // whatever its sign
  char buffer[32];
  const auto [end, error] =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 15);
  std::string text(buffer, end);
  if (const std::size_t e = text.find('e'); e != std::string::npos) text[e] = 'E';
  return text;
}

double ValOf(double value) {
  // What is nearest to a number of few decimals is what its text says already.
  constexpr double kScale = 10000, kFifteenDigits = 1e15;
  const double scaled = value * kScale;
  const bool fewDecimals = std::fabs(scaled) < kFifteenDigits && std::nearbyint(scaled) == scaled;
  return fewDecimals && scaled / kScale == value ? value : Val(Str(value));
}

double CDbl(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) throw RunTimeError(13);
  text = text.substr(first, text.find_last_not_of(' ') - first + 1);
  if (text.front() == '+') text.remove_prefix(1);
  double number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || stop != text.data() + text.size() || !std::isfinite(number))
    throw RunTimeError(13);
  return number;
}

long CLng(double value) {
  const double whole = std::nearbyint(value);
  constexpr double kLowest = std::numeric_limits<std::int32_t>::min();
  constexpr double kHighest = std::numeric_limits<std::int32_t>::max();
  if (!(whole >= kLowest && whole <= kHighest)) throw RunTimeError(6);
  return static_cast<long>(whole);
}

double Divide(double dividend, double divisor) {
  if (divisor == 0) throw RunTimeError(11);
  return dividend / divisor;
}

}  // namespace kvi
