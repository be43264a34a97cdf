#include "jet/engine/CopyDatabase.h"

#include <sqlite3.h>

#include <filesystem>
#include <memory>

#include "base/RunTimeError.h"
#include "jet/engine/EngineError.h"

namespace kvi::jet {

namespace {

constexpr int kCannotBeMade = 3051;
constexpr int kLocked = 3260;

struct CloseFile {
  void operator()(sqlite3* file) const { sqlite3_close(file); }
};

// Copies page after page under one lock, for which the wait is the same as before a save.
int CopyPages(Connection& from, sqlite3* to) {
  sqlite3_backup* copy = sqlite3_backup_init(to, "main", from.Handle(), "main");
  if (copy == nullptr) return sqlite3_errcode(to);
  LockWait wait;
  wait.Start();
  for (;;) {
    const int code = sqlite3_backup_step(copy, -1);
    const bool locked = code == SQLITE_BUSY || code == SQLITE_LOCKED;
    if (!locked || !wait.Nap()) break;
  }
  return sqlite3_backup_finish(copy);
}

void CopyInto(Connection& from, const std::string& path) {
  sqlite3* opened = nullptr;
  const int code =
      sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
  const std::unique_ptr<sqlite3, CloseFile> to(opened);
  if (code != SQLITE_OK) throw RunTimeError(kCannotBeMade);
  const int copied = CopyPages(from, opened);
  if (copied == SQLITE_BUSY || copied == SQLITE_LOCKED) throw RunTimeError(kLocked);
  if (copied != SQLITE_OK) RaiseEngineError(opened, copied);
}

}  // namespace

void CopyDatabase(Connection& from, const std::string& path) {
  const std::string unfinished = path + ".new";
  std::error_code error;
  std::filesystem::remove(unfinished, error);
  try {
    CopyInto(from, unfinished);
    std::filesystem::rename(unfinished, path, error);
    if (error) throw RunTimeError(kCannotBeMade);
  } catch (const RunTimeError&) {
    std::filesystem::remove(unfinished, error);
    std::filesystem::remove(unfinished + "-journal", error);
    throw;
  }
}

}  // namespace kvi::jet
