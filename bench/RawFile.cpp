#include "bench/RawFile.h"

#include <cstdio>
#include <cstdlib>

#include "jet/sqlite/JetFunctions.h"

namespace kvi::bench {
namespace {

[[noreturn]] void Fail(sqlite3* db, const std::string& what) {
  std::fprintf(stderr, "%s: %s\n", what.c_str(), sqlite3_errmsg(db));
  std::exit(EXIT_FAILURE);
}

}  // namespace

RawFile::RawFile(const std::string& path) {
  constexpr int kFlags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
  if (sqlite3_open_v2(path.c_str(), &db_, kFlags, nullptr) != SQLITE_OK) Fail(db_, path);
  jet::RegisterJetFunctions(db_);  // the indexes are in our order
  Run("PRAGMA journal_mode=PERSIST;PRAGMA journal_size_limit=33554432;PRAGMA synchronous=FULL;"
      "PRAGMA temp_store=MEMORY;PRAGMA cache_size=-32768");
}

RawFile::~RawFile() {
  statements_.clear();
  sqlite3_close(db_);
}

void RawFile::Run(const std::string& sql) {
  if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Fail(db_, sql);
}

sqlite3_stmt* RawFile::Prepare(const std::string& sql) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(db_, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) Fail(db_, sql);
  statements_.emplace_back(statement);
  return statement;
}

std::vector<sqlite3_int64> RawFile::Keys(const std::string& sql) {
  std::vector<sqlite3_int64> keys;
  sqlite3_stmt* rows = Prepare(sql);
  while (Step(rows)) keys.push_back(sqlite3_column_int64(rows, 0));
  return keys;
}

double RawFile::Number(const std::string& sql) {
  sqlite3_stmt* rows = Prepare(sql);
  const double number = Step(rows) ? sqlite3_column_double(rows, 0) : 0;
  sqlite3_reset(rows);
  return number;
}

int RawFile::Walk(const std::string& sql) {
  int count = 0;
  sqlite3_stmt* rows = Prepare(sql);
  while (Step(rows)) ++count;
  return count;
}

bool Step(sqlite3_stmt* statement) {
  const int code = sqlite3_step(statement);
  if (code == SQLITE_ROW) return true;
  if (code != SQLITE_DONE) Fail(sqlite3_db_handle(statement), sqlite3_sql(statement));
  sqlite3_reset(statement);
  return false;
}

int ColumnNamed(sqlite3_stmt* statement, const char* name) {
  int column = 0;
  while (sqlite3_stricmp(sqlite3_column_name(statement, column), name) != 0) ++column;
  return column;
}

std::string TextOf(sqlite3_stmt* statement, int column) {
  const void* text = sqlite3_column_text(statement, column);
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
  return text ? std::string(static_cast<const char*>(text), size) : std::string();
}

void BindText(sqlite3_stmt* statement, int index, const std::string& text) {
  sqlite3_bind_text(statement, index, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
}

}  // namespace kvi::bench
