#include "jet/sqlite/SqliteConnection.h"

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "base/RunTimeError.h"
#include "jet/engine/FieldRules.h"
#include "jet/engine/StatementRun.h"
#include "jet/sqlite/EngineError.h"
#include "jet/sqlite/JetFile.h"
#include "jet/sqlite/JetFunctions.h"
#include "jet/sqlite/SqliteStatement.h"

namespace kvi::jet {
namespace {

// More distinct statements than the system has; beyond it something builds them without end.
constexpr std::size_t kMostStatements = 400;

bool IsFolderWritable(const std::string& path) {
  std::filesystem::path folder = std::filesystem::path(path).parent_path();
  if (folder.empty()) folder = ".";
  return access(folder.c_str(), W_OK) == 0;
}

// What can be told before the engine touches the file.
void CheckFile(const std::string& path) {
  struct stat info {};
  if (stat(path.c_str(), &info) != 0) {
    if (errno == EACCES) throw RunTimeError(3051);
    throw RunTimeError(3024, DescriptionOf(3024) + " ('" + path + "')");
  }
  if (!S_ISREG(info.st_mode)) throw RunTimeError(3051);
  // To the engine an empty file is an empty database; to us it is one that was lost.
  if (info.st_size == 0) throw RunTimeError(3343, "'" + path + "' is empty.");
}

int OnBusy(void* wait, int count) {
  auto& lockWait = *static_cast<LockWait*>(wait);
  if (count == 0) lockWait.Start();
  return lockWait.Nap() ? 1 : 0;
}

}  // namespace

SqliteConnection::SqliteConnection(const std::string& path, bool exclusive)
    : exclusive_(exclusive) {
  CheckFile(path);
  try {
    OpenFile(path, 0);
    readOnly_ = sqlite3_db_readonly(db_, "main") == 1 || !IsFolderWritable(path);
    CheckHeader(path);
    Configure(path);
    if (exclusive_) TakeExclusively();
  } catch (...) {
    Close();
    throw;
  }
}

SqliteConnection::SqliteConnection(const std::string& newPath) : exclusive_(true) {
  try {
    OpenFile(newPath, SQLITE_OPEN_CREATE);
    SetUpDialect();
  } catch (...) {
    Close();
    throw;
  }
}

SqliteConnection::~SqliteConnection() {
  Close();
}

void SqliteConnection::OpenFile(const std::string& path, int flags) {
  flags |= SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
  flags |= SQLITE_OPEN_URI;  // a file attached can be one that is only read
  if (sqlite3_open_v2(path.c_str(), &db_, flags, nullptr) != SQLITE_OK) throw RunTimeError(3051);
  sqlite3_file_control(db_, "main", SQLITE_FCNTL_FILE_POINTER, &file_);
}

void SqliteConnection::CheckHeader(const std::string& path) const {
  switch (RecogniseFile(file_)) {
    case FileKind::Database:
      return;
    case FileKind::Jet:
      throw RunTimeError(3343, "'" + path +
                                   "' is a database of the older program. Start Kestvar "
                                   "Inventory to convert it, or use kvi-convert.");
    case FileKind::Other:
      throw RunTimeError(3343, DescriptionOf(3343) + " ('" + path + "')");
  }
}

void SqliteConnection::SetUpDialect() {
  // A misspelt name in double quotes must be an error, not a text.
  sqlite3_db_config(db_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(db_, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  RegisterJetFunctions(db_);
}

void SqliteConnection::Configure(const std::string& path) {
  SetUpDialect();
  sqlite3_busy_handler(db_, OnBusy, &lockWait_);
  // Never write-ahead logging: its shared memory does not work on a network folder. An emptied
  // journal costs a reader one look; one that is kept would be opened at each read, at no gain for
  // a save (0.7 ms either way on a disk of its own). The first statement also undoes a save that
  // was broken off.
  const char* settings[] = {"PRAGMA journal_mode=TRUNCATE", "PRAGMA synchronous=FULL",
                            "PRAGMA temp_store=MEMORY", "PRAGMA cache_size=-32768",
                            "BEGIN;SELECT count(*) FROM sqlite_master"};
  for (const char* setting : settings)
    if (const int code = TryRun(setting); code != SQLITE_OK) RaiseOpenError(db_, code, path);
  if (IsCutOff(file_)) throw RunTimeError(3343, "'" + path + "' is cut off.");
  Run("COMMIT");
}

void SqliteConnection::TakeExclusively() {
  Run("PRAGMA locking_mode=EXCLUSIVE");
  const int code = TryRun(readOnly_ ? "SELECT count(*) FROM sqlite_master" : "BEGIN EXCLUSIVE");
  if ((code & 0xFF) == SQLITE_BUSY) throw RunTimeError(3045);
  if (code != SQLITE_OK) Fail(code);
  if (InTransaction()) Run("COMMIT");
}

void SqliteConnection::Check() {
  StatementRun run(*this, "PRAGMA main.quick_check(1)");
  if (run.Step() && run.Text(0) != "ok") throw RunTimeError(3343, "'" + Path() + "' is damaged.");
}

void SqliteConnection::Close() {
  if (!db_) return;
  statements_.clear();
  sqlite3_close_v2(db_);
  db_ = nullptr;
  file_ = nullptr;
}

std::string SqliteConnection::Path() const {
  return sqlite3_db_filename(db_, "main");
}

sqlite3_stmt* SqliteConnection::Prepare(std::string_view sql) {
  sqlite3_stmt* statement = nullptr;
  int code = SQLITE_OK;
  // (Where another desk changed tables, the first use reads the file.)
  do
    code = sqlite3_prepare_v3(db_, sql.data(), static_cast<int>(sql.size()),
                              SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
  while (IsBusy(code) && AskToWait());
  if (code != SQLITE_OK) Fail(code);
  return statement;
}

SqliteStatement& SqliteConnection::Prepared(std::string_view sql) {
  if (const auto found = statements_.find(sql); found != statements_.end()) return *found->second;
  if (statements_.size() >= kMostStatements)
    std::erase_if(statements_,
                  [](const auto& entry) { return sqlite3_stmt_busy(entry.second->Handle()) == 0; });
  auto run = std::make_unique<SqliteStatement>(*this, Prepare(sql));
  return *statements_.emplace(sql, std::move(run)).first->second;
}

Statement& SqliteConnection::Start(std::string_view sql) {
  return Prepared(sql);
}

long SqliteConnection::RowsWritten() const {
  return sqlite3_changes(db_);
}

std::int64_t SqliteConnection::AllRowsWritten() const {
  return sqlite3_total_changes64(db_);
}

std::int64_t SqliteConnection::LastKey() const {
  return sqlite3_last_insert_rowid(db_);
}

std::string SqliteConnection::ListSql(const std::string& columns, const StoredTable& table) const {
  return "SELECT " + columns + " FROM json_each(?1) AS k CROSS JOIN " + Bracketed(table.Name) +
         " AS t ON t." + Bracketed(table.Key) + "=k.value";
}

int SqliteConnection::TryStep(std::string_view sql) {
  sqlite3_stmt* statement = Prepared(sql).Handle();
  int code = SQLITE_ROW;
  while (code == SQLITE_ROW) code = sqlite3_step(statement);
  sqlite3_reset(statement);
  return code == SQLITE_DONE ? SQLITE_OK : code;
}

int SqliteConnection::TryRun(const std::string& sql) {
  return sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr);
}

void SqliteConnection::Run(const std::string& sql) {
  if (const int code = TryRun(sql); code != SQLITE_OK) Fail(code);
}

void SqliteConnection::Fail(int code) const {
  RaiseEngineError(db_, code);
}

}  // namespace kvi::jet
