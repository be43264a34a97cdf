#include "jet/engine/StatementRun.h"

#include <cmath>

namespace kvi::jet {
namespace {

// What a field of the type holds of a whole number, a double or a text that is stored.
Value OfWhole(std::int64_t number, FieldType type) {
  if (type == FieldType::Boolean) return number != 0;
  if (type == FieldType::Double || type == FieldType::Single) return static_cast<double>(number);
  return number;
}

Value OfDouble(double number, FieldType type) {
  if (type == FieldType::Boolean) return number != 0;
  if (type == FieldType::Integer && std::nearbyint(number) == number && std::fabs(number) < 9e15)
    return static_cast<std::int64_t>(number);
  return number;
}

Value OfText(std::string_view text, FieldType type) {
  if (type == FieldType::Boolean) return Value(text).Boolean();
  if (type == FieldType::Date)
    if (const auto date = FromIsoText(text)) return *date;
  return text;
}

}  // namespace

void StatementRun::Bind(int index, const Value& value) {
  if (value.IsNull())
    run_.BindNull(index);
  else if (value.IsText())
    Bind(index, std::string_view(value.AsText()));
  else if (value.IsDouble())
    run_.Bind(index, value.AsNumber());
  else if (value.IsWhole())
    Bind(index, value.AsWhole());
  else if (value.IsBoolean())
    Bind(index, std::int64_t{value.Boolean() ? -1 : 0});  // true is -1, in the file as well
  else
    run_.Bind(index, value.AsDate());
}

void StatementRun::BindAll(const std::vector<Value>& parameters) {
  const int count = run_.Parameters();
  for (int index = 1; index <= count; ++index)
    Bind(index, parameters[static_cast<std::size_t>(index) - 1]);
}

Value StatementRun::Field(int column, FieldType type) const {
  switch (run_.KindOf(column)) {
    case Statement::Kind::Null:
      return type == FieldType::Boolean ? Value(false) : Value();
    case Statement::Kind::Whole:
      return OfWhole(run_.Whole(column), type);
    case Statement::Kind::Number:
      return OfDouble(run_.Number(column), type);
    default:
      return OfText(run_.Text(column), type);
  }
}

Value StatementRun::Plain(int column) const {
  switch (run_.KindOf(column)) {
    case Statement::Kind::Null:
      return {};
    case Statement::Kind::Whole:
      return run_.Whole(column);
    case Statement::Kind::Number:
      return run_.Number(column);
    default:
      return run_.Text(column);
  }
}

}  // namespace kvi::jet
