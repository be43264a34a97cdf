#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

struct sqlite3;
struct sqlite3_stmt;
struct sqlite3_file;

namespace kvi::jet {

// How long a lock that another desk holds is waited for.
inline constexpr std::chrono::milliseconds kLockWait{2000};

// The wait for a lock: short naps of random length until the time is over. The engine's own waiting
// sleeps ever longer, so that single saves starve behind a batch.
class LockWait {
 public:
  LockWait();
  void Start() { begun_ = std::chrono::steady_clock::now(); }
  // Sleeps 1 to 3 ms; false when the time is over.
  bool Nap();

 private:
  std::chrono::steady_clock::time_point begun_;
  std::uint64_t chance_;
};

// The open file: its settings, and its prepared statements by their text. Nothing here knows of
// tables.
class Connection {
 public:
  // An existing database file; raises as Database::Open does.
  Connection(const std::string& path, bool exclusive);
  // A new one, or ":memory:".
  explicit Connection(const std::string& newPath);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  bool IsOpen() const { return db_ != nullptr; }
  bool IsReadOnly() const { return readOnly_; }
  bool IsExclusive() const { return exclusive_; }
  bool InTransaction() const;
  // No lock on the file, whether a transaction was begun or not.
  bool HoldsNothing() const;
  void Close();

  // Asked when a lock that another desk holds has lasted for kLockWait: true goes on waiting.
  std::function<bool()> OnLocked;
  // False where nobody is to be asked, or must not be as we hold a lock ourselves. Raises
  // NotWaiting for a No.
  bool AskToWait() const;

  sqlite3* Handle() const { return db_; }
  sqlite3_file* File() const { return file_; }
  // The prepared statement of this text, made at its first use. Raises what is wrong with it.
  sqlite3_stmt* Prepared(std::string_view sql);
  // Runs a prepared statement without a result; the engine's code.
  int TryStep(std::string_view sql);
  // Runs a text once: settings, and what changes tables.
  int TryRun(const std::string& sql);
  void Run(const std::string& sql);
  [[noreturn]] void Fail(int code) const;

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const;
  };
  struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
    }
  };
  using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

  void OpenFile(const std::string& path, int flags);
  void CheckHeader(const std::string& path) const;
  void SetUpDialect();
  void Configure(const std::string& path);
  void TakeExclusively();

  sqlite3* db_ = nullptr;
  sqlite3_file* file_ = nullptr;
  bool readOnly_ = false;
  const bool exclusive_;
  LockWait lockWait_;
  std::unordered_map<std::string, Statement, TextHash, std::equal_to<>> statements_;
};

}  // namespace kvi::jet
