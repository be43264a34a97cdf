#include "jet/engine/FieldRules.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "base/Date.h"
#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"

namespace kvi::jet {
namespace {

// A text is a number only as a whole: "" and "12 each" are refused, where Val would read 0 and 12.
std::optional<double> WholeTextAsNumber(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  if (text.starts_with('+')) text.remove_prefix(1);
  double number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end || text.empty()) return std::nullopt;
  return number;
}

double ToNumber(const Value& value) {
  const std::optional<double> number =
      value.IsText() ? WholeTextAsNumber(value.AsText()) : value.Number();
  if (!number || !std::isfinite(*number)) throw RunTimeError(3421);
  return *number;
}

// Of 16 bits, as the type's classic number says.
Value ToWhole(const Value& value) {
  using Limits = std::numeric_limits<std::int16_t>;
  const double number = std::nearbyint(ToNumber(value));  // a half goes to the even one
  if (number < Limits::min() || number > Limits::max()) throw RunTimeError(3421);
  return static_cast<std::int64_t>(number);
}

Value ToBoolean(const Value& value) {
  if (!value.IsText()) return value.Boolean();
  for (const char* word : {"True", "Yes", "On"})
    if (EqualsNoCase(value.AsText(), word)) return true;
  for (const char* word : {"False", "No", "Off"})
    if (EqualsNoCase(value.AsText(), word)) return false;
  return ToNumber(value) != 0;
}

Value ToDate(const Value& value) {
  if (value.IsDate()) return value;
  const auto date = value.IsText() ? CDate(value.AsText()) : FromDayCount(value.Number());
  if (!date) throw RunTimeError(3421);
  return *date;
}

Value ToText(const FieldDef& field, const Value& value) {
  Value text = value.IsText() ? value : Value(value.Text());
  if (field.Type == FieldType::Text) {
    const auto size = static_cast<std::size_t>(field.Size);
    // (Characters are never more than bytes.)
    if (text.AsText().size() > size && Len(text.AsText()) > size)
      throw RunTimeError(3163, DescriptionOf(3163) + " (" + field.Name + ")");
  }
  return text;
}

}  // namespace

Value ToField(const FieldDef& field, const Value& value) {
  if (field.Type == FieldType::Boolean) return ToBoolean(value);
  if (value.IsNull()) return value;
  switch (field.Type) {
    case FieldType::Integer:
      return ToWhole(value);
    case FieldType::Single:
    case FieldType::Double:
      return value.IsDouble() && std::isfinite(value.AsNumber()) ? value : Value(ToNumber(value));
    case FieldType::Date:
      return ToDate(value);
    default:
      return ToText(field, value);
  }
}

std::string ColumnDefinition(const FieldDef& field) {
  std::string text = Bracketed(field.Name);
  const std::string size = std::to_string(field.Size);
  switch (field.Type) {
    case FieldType::Boolean:
      return text + " BOOLEAN NOT NULL DEFAULT 0";
    case FieldType::Integer:
      return text + " INTEGER";
    case FieldType::Single:
      return text + " FLOAT";
    case FieldType::Double:
      return text + " DOUBLE";
    case FieldType::Date:
      return text + " DATE";
    case FieldType::Memo:
      return text + " TEXT COLLATE JET1";
    default:
      return text + " TEXT(" + size + ") COLLATE JET1 CHECK(length(" + Bracketed(field.Name) +
             ")<=" + size + ")";
  }
}

FieldDef FieldOfColumn(std::string_view name, std::string_view declaredType) {
  const std::string type = UCase(declaredType);
  const auto has = [&](const char* word) { return type.find(word) != std::string::npos; };
  FieldDef field{std::string(name), FieldType::Memo, 0};
  if (has("BOOL") || type == "BIT" || has("YESNO")) {
    field.Type = FieldType::Boolean;
  } else if (has("DATE") || has("TIME")) {
    field.Type = FieldType::Date;
  } else if (has("CHAR") || has("TEXT")) {
    if (const std::size_t open = type.find('('); open != std::string::npos) {
      field.Type = FieldType::Text;
      field.Size = static_cast<int>(Val(std::string_view(type).substr(open + 1)));
    }
  } else if (has("INT") || has("LONG") || has("COUNTER")) {
    field.Type = FieldType::Integer;
  } else if (has("FLOAT") || has("SINGLE")) {
    field.Type = FieldType::Single;
  } else if (has("DOUB") || has("REAL") || has("NUM") || has("DEC") || has("CURRENCY")) {
    field.Type = FieldType::Double;
  }
  return field;
}

std::string Bracketed(std::string_view name) {
  if (name.empty() || name.find(']') != std::string_view::npos)
    throw RunTimeError(3075, DescriptionOf(3075) + " (" + std::string(name) + ")");
  return "[" + std::string(name) + "]";
}

}  // namespace kvi::jet
