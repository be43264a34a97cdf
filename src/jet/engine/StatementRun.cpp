#include "jet/engine/StatementRun.h"

#include <sqlite3.h>

#include <cmath>
#include <string>

#include "base/RunTimeError.h"
#include "jet/engine/EngineError.h"

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

StatementRun::StatementRun(Connection& connection, std::string_view sql)
    : connection_(connection), statement_(connection.Prepared(sql)) {}

StatementRun::~StatementRun() {
  sqlite3_reset(statement_);
}

void StatementRun::Bind(int index, std::int64_t value) {
  sqlite3_bind_int64(statement_, index, value);
}

void StatementRun::Bind(int index, std::string_view text) {
  // (A null pointer would bind Null.)
  sqlite3_bind_text64(statement_, index, text.data() ? text.data() : "", text.size(), SQLITE_STATIC,
                      SQLITE_UTF8);
}

void StatementRun::Bind(int index, const Value& value) {
  if (value.IsNull()) {
    sqlite3_bind_null(statement_, index);
  } else if (value.IsText()) {
    Bind(index, std::string_view(value.AsText()));
  } else if (value.IsDouble()) {
    sqlite3_bind_double(statement_, index, value.AsNumber());
  } else if (value.IsWhole()) {
    Bind(index, value.AsWhole());
  } else if (value.IsBoolean()) {
    Bind(index, std::int64_t{value.Boolean() ? -1 : 0});  // true is -1, in the file as well
  } else {
    const std::string text = IsoText(value.AsDate());
    sqlite3_bind_text64(statement_, index, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
  }
}

void StatementRun::BindAll(const std::vector<Value>& parameters) {
  const int count = sqlite3_bind_parameter_count(statement_);
  for (int index = 1; index <= count; ++index)
    Bind(index, parameters[static_cast<std::size_t>(index) - 1]);
}

bool StatementRun::Step() {
  int code = sqlite3_step(statement_);
  // Only the first step takes the lock, so running the statement again gives no row twice.
  while (IsBusy(code)) {
    sqlite3_reset(statement_);
    if (!connection_.AskToWait()) throw RunTimeError(3260);
    code = sqlite3_step(statement_);
  }
  if (code == SQLITE_ROW) return true;
  if (code != SQLITE_DONE) connection_.Fail(code);
  return false;
}

int StatementRun::Columns() const {
  return sqlite3_column_count(statement_);
}

std::string_view StatementRun::Name(int column) const {
  const char* name = sqlite3_column_name(statement_, column);
  return name ? name : "";
}

std::string_view StatementRun::DeclaredType(int column) const {
  const char* type = sqlite3_column_decltype(statement_, column);
  return type ? type : "";
}

bool StatementRun::IsNull(int column) const {
  return sqlite3_column_type(statement_, column) == SQLITE_NULL;
}

std::int64_t StatementRun::Whole(int column) const {
  return sqlite3_column_int64(statement_, column);
}

std::string_view StatementRun::Text(int column) const {
  const void* text = sqlite3_column_text(statement_, column);
  if (!text) return {};
  return {static_cast<const char*>(text),
          static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

Value StatementRun::Field(int column, FieldType type) const {
  switch (sqlite3_column_type(statement_, column)) {
    case SQLITE_NULL:
      return type == FieldType::Boolean ? Value(false) : Value();
    case SQLITE_INTEGER:
      return OfWhole(Whole(column), type);
    case SQLITE_FLOAT:
      return OfDouble(sqlite3_column_double(statement_, column), type);
    default:
      return OfText(Text(column), type);
  }
}

Value StatementRun::Plain(int column) const {
  switch (sqlite3_column_type(statement_, column)) {
    case SQLITE_NULL:
      return {};
    case SQLITE_INTEGER:
      return Whole(column);
    case SQLITE_FLOAT:
      return sqlite3_column_double(statement_, column);
    default:
      return Text(column);
  }
}

}  // namespace kvi::jet
