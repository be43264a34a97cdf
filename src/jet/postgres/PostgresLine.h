#pragma once

#include <libpq-fe.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kvi::jet {

struct FreeResult {
  void operator()(PGresult* result) const { PQclear(result); }
};
using ServerResult = std::shared_ptr<PGresult>;

// What the server, or the line to it, answered instead of a result.
struct ServerFailure {
  std::string State;    // SQLSTATE; "" for the line
  std::string Message;  // in one sentence, without what the server calls it
  std::string Name;     // of the column or the constraint concerned
  std::size_t Place;    // of the statement among those sent together

  bool IsLine() const;
  // Another desk holds what was asked for; also where the server ended a deadlock.
  bool IsLock() const;
};

// The server's numbers of the types that parameters have.
inline constexpr Oid kServerWhole = 20, kServerText = 25, kServerDouble = 701, kServerDate = 1114;

// One parameter of a statement, as text. `Type` is the server's number of a type, 0 for Null.
struct Parameter {
  Oid Type = 0;
  bool IsNull = true;
  std::string Text;
};

// The line to the server: statements are queued and go off together, so that many of them cost one
// trip. Each text is prepared when it first goes off.
class PostgresLine {
 public:
  explicit PostgresLine(std::string address) : address_(std::move(address)) {}

  // Raises 3151 where there is no server or it does not let us in.
  void Connect();
  void Disconnect() { connection_.reset(); }
  bool IsUp() const;
  int Backend() const { return PQbackendPID(connection_.get()); }
  // Counts the lines made.
  std::uint64_t Number() const { return number_; }

  void Queue(std::string_view sql, const std::vector<Parameter>& parameters = {});
  std::size_t Queued() const { return queued_; }
  // Sends what is queued and waits for the answers, one a statement. Throws the first failure;
  // what stands behind it was not run.
  std::vector<ServerResult> Exchange();

  // Hands rows over, a line each, until there are no more. Nothing may be queued.
  void Copy(const std::string& sql, const std::function<bool(std::string&)>& next);

 private:
  struct Finish {
    void operator()(PGconn* connection) const { PQfinish(connection); }
  };
  struct Entry {
    std::string prepares;  // the key of a text that is prepared, else empty
  };

  ServerFailure FailureOf(const PGresult* result, std::size_t place) const;
  [[noreturn]] void FailLine();

  const std::string address_;
  std::unique_ptr<PGconn, Finish> connection_;
  std::uint64_t number_ = 0;
  std::vector<Entry> entries_;
  std::size_t queued_ = 0;
  bool broken_ = false;
  std::unordered_map<std::string, std::string> prepared_;  // names by text and types
  std::uint64_t names_ = 0;
};

}  // namespace kvi::jet
