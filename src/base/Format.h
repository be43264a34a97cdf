#pragma once

#include <string>
#include <string_view>

#include "base/Date.h"
#include "base/Value.h"

namespace kvi {

// Decimal text of a number under a mask of '#', '0', '.', ',' and a literal prefix such as "$ ".
// The value is first brought to 15 significant digits, then rounded half away from zero in decimal:
// 2.345 under "###0.00" is 2.35 and 1.005 is 1.01. '0' always shows a digit, '#' only where there
// is one; a value wider than the mask keeps all its digits; the sign stands before the prefix. The
// empty mask gives the general text form.
std::string Format(double value, std::string_view mask);

// Date masks: "mm/dd/yyyy", "m/d/yyyy", "yymmdd", "hhmmss", "HH:MM AM/PM" and their like, in
// either case; "mm" behind "hh" is minutes.
std::string Format(const Date& date, std::string_view mask);

// Null gives "". A text that is wholly a number is formatted as one, and under a date mask a text
// that is a date; any other text stays as it is.
std::string Format(const Value& value, std::string_view mask);

}  // namespace kvi
