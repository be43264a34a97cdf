#include "base/Value.h"

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"

namespace kvi {
namespace {

template <typename Held, typename Variant>
const Held& Alternative(const Variant& variant) {
  if (const Held* held = std::get_if<Held>(&variant)) return *held;
  throw RunTimeError(13);
}

constexpr double kSecondsOfDay = 24.0 * 60 * 60;

}  // namespace

std::string Value::Text() const {
  struct ToText {
    std::string operator()(std::monostate) const { return {}; }
    std::string operator()(bool value) const { return value ? "True" : "False"; }
    std::string operator()(std::int64_t value) const { return std::to_string(value); }
    std::string operator()(double value) const { return Str(value); }
    std::string operator()(const std::string& value) const { return value; }
    std::string operator()(const Date& value) const { return Str(value); }
  };
  return std::visit(ToText(), held_);
}

double Value::Number() const {
  struct ToNumber {
    double operator()(std::monostate) const { return 0; }
    double operator()(bool value) const { return value ? -1 : 0; }
    double operator()(std::int64_t value) const { return static_cast<double>(value); }
    double operator()(double value) const { return value; }
    double operator()(const std::string& value) const { return Val(value); }
    double operator()(const Date& value) const {
      const int seconds = (value.hour * 60 + value.minute) * 60 + value.second;
      return static_cast<double>(DayNumber(value)) + seconds / kSecondsOfDay;
    }
  };
  return std::visit(ToNumber(), held_);
}

bool Value::Boolean() const {
  if (IsText() && EqualsNoCase(AsText(), "True")) return true;
  return Number() != 0;
}

const std::string& Value::AsText() const {
  return Alternative<std::string>(held_);
}
const Date& Value::AsDate() const {
  return Alternative<Date>(held_);
}
std::int64_t Value::AsWhole() const {
  return Alternative<std::int64_t>(held_);
}

double Value::AsNumber() const {
  if (!IsBoolean() && !IsWhole() && !IsDouble()) throw RunTimeError(13);
  return Number();
}

double ValOf(const Value& value) {
  return value.IsDouble() ? ValOf(value.AsNumber()) : Val(value.Text());
}

}  // namespace kvi
