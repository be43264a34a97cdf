#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kvi {

// The value of the longest numeric prefix, 0 when there is none. Blanks, tabs and line ends inside
// and before are skipped; "1E3" and "1D3" are 1000; "&H" is not read; the decimal sign is the point
// whatever the desk's language; no thousands separators.
double Val(std::string_view text);

// Whether Val reads the text to its end: "12ab" and "1,5" it reads in part only.
bool IsReadWhole(std::string_view text);

// A number as a person writes an amount: a sign, a currency sign "$", commas between thousands, a
// point; nothing for any other text, where Val would read a part of it.
std::optional<double> TypedNumber(std::string_view text);

// The general text form of a number: at most 15 significant digits, no padding, no trailing zeros,
// "1E+15" notation beyond that. (No leading blank for the sign.) Raises 6 for what is not finite.
std::string Str(double value);
inline std::string Str(int value) {
  return std::to_string(value);
}

// Val of the general text form: the number as far as 15 significant digits tell it.
double ValOf(double value);

// The number that a text is as a whole, blanks around it apart. Raises 13 for a blank text and for
// one that holds anything else.
double CDbl(std::string_view text);

// The nearest whole number, a half going to the even one, as the classic conversions do.
// Raises 6 outside of the 32-bit range.
long CLng(double value);

// Raises 11 for a divisor of 0, whatever is divided, where the machine would go on.
double Divide(double dividend, double divisor);

}  // namespace kvi
