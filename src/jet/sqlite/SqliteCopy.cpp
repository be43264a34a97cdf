#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <random>
#include <utility>
#include <vector>

#include "base/RunTimeError.h"
#include "base/TakeName.h"
#include "jet/sqlite/EngineError.h"
#include "jet/sqlite/SqliteConnection.h"

namespace kvi::jet {

namespace {

namespace fs = std::filesystem;

constexpr int kCannotBeMade = 3051;
constexpr int kExists = 3204;
constexpr std::size_t kPiece = 1 << 20;

// The file under a lock for reading: nobody writes to it meanwhile, and what others saved is in it.
class ReadLock {
 public:
  explicit ReadLock(SqliteConnection& connection) : connection_(connection) {
    int code = Take();
    while (IsBusy(code) && connection_.AskToWait()) code = Take();
    if (code != SQLITE_OK) connection_.Fail(code);
  }
  ~ReadLock() { connection_.TryRun("COMMIT"); }
  ReadLock(const ReadLock&) = delete;
  ReadLock& operator=(const ReadLock&) = delete;

 private:
  int Take() {
    const int code = connection_.TryRun("BEGIN;SELECT count(*) FROM sqlite_master");
    if (code != SQLITE_OK) connection_.TryRun("ROLLBACK");
    return code;
  }

  SqliteConnection& connection_;
};

// A new file that is gone again unless it took its name.
class NewFile {
 public:
  explicit NewFile(const std::string& path)
      : unfinished_(path + "." + std::to_string(std::random_device{}()) + ".new"),
        file_(::open(unfinished_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666)) {
    if (file_ < 0) throw RunTimeError(IsFullDisk(errno) ? 3183 : kCannotBeMade);
  }
  ~NewFile() {
    if (file_ >= 0) ::close(file_);
    std::error_code ignored;
    fs::remove(unfinished_, ignored);
  }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  void Write(const char* bytes, std::size_t size) {
    while (size > 0) {
      const ssize_t written = ::write(file_, bytes, size);
      if (written < 0 && errno == EINTR) continue;
      if (written < 0) throw RunTimeError(IsFullDisk(errno) ? 3183 : 3043);
      bytes += written;
      size -= static_cast<std::size_t>(written);
    }
  }
  void Finish(const std::string& path) {
    const bool synced = ::fsync(file_) == 0;
    const int error = errno;
    const bool closed = ::close(std::exchange(file_, -1)) == 0;
    if (!synced || !closed) throw RunTimeError(IsFullDisk(synced ? errno : error) ? 3183 : 3043);
    if (!TakeName(unfinished_, path)) throw RunTimeError(kExists);
  }

 private:
  const std::string unfinished_;
  int file_;
};

}  // namespace

// Read through the engine's own handle: were the file opened a second time, closing it would drop
// every lock that this process has on it.
void SqliteConnection::CopyTo(const std::string& path) {
  std::error_code ignored;
  if (fs::exists(fs::symlink_status(path, ignored))) throw RunTimeError(kExists);
  NewFile to(path);
  {
    const ReadLock lock(*this);
    sqlite3_int64 size = 0;
    file_->pMethods->xFileSize(file_, &size);
    std::vector<char> piece(kPiece);
    for (sqlite3_int64 at = 0; at < size; at += static_cast<sqlite3_int64>(kPiece)) {
      const auto length = std::min<sqlite3_int64>(size - at, static_cast<sqlite3_int64>(kPiece));
      const int code = file_->pMethods->xRead(file_, piece.data(), static_cast<int>(length), at);
      if (code != SQLITE_OK) Fail(code);
      to.Write(piece.data(), static_cast<std::size_t>(length));
    }
  }
  to.Finish(path);
}

}  // namespace kvi::jet
