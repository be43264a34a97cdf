#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "base/Date.h"

namespace kvi {

// The content of one field: Null, a boolean, a whole number, a double, a text or a date.
class Value {
 public:
  Value() = default;
  Value(bool value) : held_(value) {}
  Value(int value) : held_(std::int64_t{value}) {}
  Value(std::int64_t value) : held_(value) {}
  Value(double value) : held_(value) {}
  Value(std::string value) : held_(std::move(value)) {}
  Value(std::string_view value) : held_(std::string(value)) {}
  Value(const char* value) : held_(std::string(value)) {}
  Value(const Date& value) : held_(value) {}

  bool IsNull() const { return std::holds_alternative<std::monostate>(held_); }
  bool IsBoolean() const { return std::holds_alternative<bool>(held_); }
  bool IsWhole() const { return std::holds_alternative<std::int64_t>(held_); }
  bool IsDouble() const { return std::holds_alternative<double>(held_); }
  bool IsText() const { return std::holds_alternative<std::string>(held_); }
  bool IsDate() const { return std::holds_alternative<Date>(held_); }

  // The value joined to an empty text: "" for Null, the general text form for the rest
  // ("True" and "False" for booleans).
  std::string Text() const;
  // The text through Val; true is -1 by the classic rule, false and Null are 0; a date is its day
  // number, with the time as a fraction.
  double Number() const;
  // Null and 0 are false; a text is read as "True"/"False" or through Val.
  bool Boolean() const;

  // The alternatives themselves; each raises 13 (type mismatch) when another one is held.
  const std::string& AsText() const;
  const Date& AsDate() const;
  double AsNumber() const;  // of a boolean, whole number or double
  std::int64_t AsWhole() const;

  bool operator==(const Value&) const = default;

 private:
  std::variant<std::monostate, bool, std::int64_t, double, std::string, Date> held_;
};

// Val of the value's text: Null and a text that is no number are 0, a number has the 15 digits of
// its text.
double ValOf(const Value& value);

}  // namespace kvi
