#include "jet/sqlite/EngineError.h"

#include <sqlite3.h>

#include <cerrno>
#include <string_view>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "jet/sqlite/JetFunctions.h"

namespace kvi::jet {
namespace {

struct MessageRule {
  std::string_view beginning;
  int number;
};

// How the engine words a statement that it cannot prepare. What stands behind the beginning is the
// name concerned.
constexpr MessageRule kMessageRules[] = {
    {"no such table: ", 3078},         {"no such column: ", 3061},
    {"no such function: ", 3085},      {"ambiguous column name: ", 3079},
    {"duplicate column name: ", 3191},
};

std::string Describe(int number, std::string_view detail) {
  std::string text = DescriptionOf(number);
  if (!detail.empty()) text.append(" (").append(detail).append(")");
  return text;
}

[[noreturn]] void RaiseFunctionError(std::string_view message) {
  message.remove_prefix(kFunctionFailed.size());
  const std::size_t blank = message.find(' ');
  throw RunTimeError(static_cast<int>(Val(message.substr(0, blank))),
                     std::string(message.substr(blank + 1)));
}

[[noreturn]] void RaiseStatementError(std::string_view message) {
  if (message.starts_with(kFunctionFailed)) RaiseFunctionError(message);
  for (const MessageRule& rule : kMessageRules)
    if (message.starts_with(rule.beginning))
      throw RunTimeError(rule.number, Describe(rule.number, message.substr(rule.beginning.size())));
  if (message.find("has no column named") != std::string_view::npos)
    throw RunTimeError(3061, Describe(3061, message));
  throw RunTimeError(3075, Describe(3075, message));
}

int LastErrorOf(sqlite3* connection, int filePointer) {
  sqlite3_file* file = nullptr;
  int error = 0;
  if (sqlite3_file_control(connection, "main", filePointer, &file) == SQLITE_OK && file &&
      file->pMethods)
    file->pMethods->xFileControl(file, SQLITE_FCNTL_LAST_ERRNO, &error);
  return error;
}

int NumberOfInputOutput(sqlite3* connection, int code) {
  // The connection's own number may be that of the undoing that followed; each file keeps its last.
  const bool writing = code == SQLITE_IOERR_WRITE || code == SQLITE_IOERR_TRUNCATE;
  const bool full =
      IsFullDisk(sqlite3_system_errno(connection)) ||
      (writing && (IsFullDisk(LastErrorOf(connection, SQLITE_FCNTL_FILE_POINTER)) ||
                   IsFullDisk(LastErrorOf(connection, SQLITE_FCNTL_JOURNAL_POINTER))));
  return full ? 3183 : 3043;
}

int NumberOfCannotOpen(sqlite3* connection) {
  // The journal beside the file could not be made: the folder may not be written.
  const int error = sqlite3_system_errno(connection);
  if (error == EACCES || error == EPERM || error == EROFS) return 3027;
  return IsFullDisk(error) ? 3183 : 3051;
}

int NumberOfConstraint(int code) {
  switch (code) {
    case SQLITE_CONSTRAINT_NOTNULL:
      return 3058;
    case SQLITE_CONSTRAINT_CHECK:  // only the lengths of text fields are checked
      return 3163;
    default:
      return 3022;
  }
}

int NumberOf(sqlite3* connection, int code) {
  switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return 3260;
    case SQLITE_CONSTRAINT:
      return NumberOfConstraint(code);
    case SQLITE_MISMATCH:
      return 3421;
    case SQLITE_TOOBIG:
      return 3163;
    case SQLITE_FULL:
      return 3183;
    case SQLITE_IOERR:
      return NumberOfInputOutput(connection, code);
    case SQLITE_READONLY:
      return 3027;
    case SQLITE_CANTOPEN:
      return NumberOfCannotOpen(connection);
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return 3051;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      return 3343;
    case SQLITE_NOMEM:
      return 7;
    default:
      return 3043;
  }
}

}  // namespace

bool IsBusy(int code) {
  return (code & 0xFF) == SQLITE_BUSY;
}

bool IsFullDisk(int systemError) {
  // A file that may grow no further (quota, size limit) is a full disk to the person who saves.
  return systemError == ENOSPC || systemError == EDQUOT || systemError == EFBIG;
}

void RaiseEngineError(sqlite3* connection, int code) {
  const int extended = sqlite3_extended_errcode(connection);
  if ((extended & 0xFF) == (code & 0xFF)) code = extended;
  if (code == SQLITE_ERROR) RaiseStatementError(sqlite3_errmsg(connection));
  const int number = NumberOf(connection, code);
  if (number == 3343) throw RunTimeError(3343, Describe(3343, sqlite3_errmsg(connection)));
  if (number == 3043) throw RunTimeError(3043, Describe(3043, sqlite3_errmsg(connection)));
  throw RunTimeError(number);
}

void RaiseOpenError(sqlite3* connection, int code, const std::string& path) {
  const int extended = sqlite3_extended_errcode(connection);
  switch (code & 0xFF) {
    case SQLITE_BUSY:
      throw RunTimeError(3045);
    case SQLITE_READONLY:
    case SQLITE_CANTOPEN:
    case SQLITE_IOERR:
      if (extended != SQLITE_IOERR_READ && extended != SQLITE_IOERR_SHORT_READ)
        throw RunTimeError(3051, "The last save to '" + path +
                                     "' was broken off and must be undone first, but the file or "
                                     "its folder may not be written.");
      break;
    default:
      break;
  }
  RaiseEngineError(connection, code);
}

}  // namespace kvi::jet
