#include "jet/sqlite/SqliteStatement.h"

#include <sqlite3.h>

#include "base/RunTimeError.h"
#include "base/Value.h"
#include "jet/sqlite/EngineError.h"

namespace kvi::jet {

SqliteStatement::~SqliteStatement() {
  sqlite3_finalize(statement_);
}

int SqliteStatement::Parameters() {
  return sqlite3_bind_parameter_count(statement_);
}

void SqliteStatement::BindNull(int index) {
  sqlite3_bind_null(statement_, index);
}

void SqliteStatement::Bind(int index, std::int64_t value) {
  sqlite3_bind_int64(statement_, index, value);
}

void SqliteStatement::Bind(int index, double value) {
  sqlite3_bind_double(statement_, index, value);
}

void SqliteStatement::Bind(int index, std::string_view text) {
  // (A null pointer would bind Null.)
  sqlite3_bind_text64(statement_, index, text.data() ? text.data() : "", text.size(), SQLITE_STATIC,
                      SQLITE_UTF8);
}

void SqliteStatement::Bind(int index, const Date& date) {
  const std::string text = IsoText(date);
  sqlite3_bind_text64(statement_, index, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

bool SqliteStatement::Step() {
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

void SqliteStatement::Finish() {
  sqlite3_reset(statement_);
}

int SqliteStatement::Columns() {
  return sqlite3_column_count(statement_);
}

std::string_view SqliteStatement::Name(int column) {
  const char* name = sqlite3_column_name(statement_, column);
  return name ? name : "";
}

std::string_view SqliteStatement::DeclaredType(int column) {
  const char* type = sqlite3_column_decltype(statement_, column);
  return type ? type : "";
}

Statement::Kind SqliteStatement::KindOf(int column) {
  switch (sqlite3_column_type(statement_, column)) {
    case SQLITE_NULL:
      return Kind::Null;
    case SQLITE_INTEGER:
      return Kind::Whole;
    case SQLITE_FLOAT:
      return Kind::Number;
    default:
      return Kind::Text;
  }
}

std::int64_t SqliteStatement::Whole(int column) {
  return sqlite3_column_int64(statement_, column);
}

double SqliteStatement::Number(int column) {
  return sqlite3_column_double(statement_, column);
}

std::string_view SqliteStatement::Text(int column) {
  const void* text = sqlite3_column_text(statement_, column);
  if (!text) return {};
  return {static_cast<const char*>(text),
          static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

}  // namespace kvi::jet
