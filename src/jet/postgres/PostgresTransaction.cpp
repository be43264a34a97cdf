// The locks, the end of a transaction, and what tells that other desks wrote.
#include <charconv>
#include <string>
#include <thread>
#include <utility>

#include "base/RunTimeError.h"
#include "jet/postgres/PostgresConnection.h"
#include "jet/postgres/PostgresError.h"

namespace kvi::jet {
namespace {

// The number of the finished transactions, which steps by one with each; and what steps when tables
// change or the whole content is replaced.
constexpr const char* kLook =
    "pg_snapshot_xmax(pg_current_snapshot())::text::bigint"
    "-(SELECT count(*) FROM pg_snapshot_xip(pg_current_snapshot())),"
    "(SELECT value FROM kvi.settings WHERE name='schema'),"
    "(SELECT value FROM kvi.settings WHERE name='generation')";

constexpr const char* kShared = "SELECT pg_advisory_xact_lock_shared(4937289)";
constexpr const char* kAlone = "SELECT pg_advisory_xact_lock(4937289)";

constexpr const char* kNotKnown =
    "The line to the server broke while a save was on its way. Whether it was saved is found out "
    "when it is saved again.";

template <class Number>
Number NumberAt(const PGresult* result, int column) {
  const std::string_view text = PQgetvalue(result, 0, column);
  Number number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace

// A row's lock goes off with the first statement, which reads the row; the database's at once.
bool PostgresConnection::TakeWriteLock(LockScope scope) {
  if (IsAlone()) return true;
  if (state_ == State::None) unsure_ = {};  // it is another save's, and whoever made it remembers
  try {
    if (state_ == State::None) RequireUp();
    if (state_ != State::Open) {
      state_ = State::Announced;
      scope_ = scope;
      if (scope == LockScope::Row) return true;
      QueueBegin();
    } else {
      line_.Queue(kAlone);
    }
    Exchange();
    scope_ = scope;
    return true;
  } catch (const ServerFailure& failure) {
    RollBack();
    if (!failure.IsLock()) RaiseServerError(failure);
    return false;
  }
}

void PostgresConnection::QueueBegin() {
  line_.Queue("BEGIN");
  line_.Queue(scope_ == LockScope::All ? kAlone : kShared);
  line_.Queue(std::string("SELECT pg_current_xact_id()::text,") + kLook);
  beginQueued_ = true;
}

// Reads alone, all of them of one moment.
void PostgresConnection::BeginMoment() {
  RollBack();
  RequireUp();
  Ask("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY");
  state_ = State::Open;
  scope_ = LockScope::Row;
}

std::vector<ServerResult> PostgresConnection::Exchange() {
  constexpr std::ptrdiff_t kOfBegin = 3;
  const bool begins = std::exchange(beginQueued_, false);
  if (begins) {
    state_ = State::Open;
    stepsOfCommit_ = 1;
  }
  std::vector<ServerResult> results = line_.Exchange();
  if (!begins) return results;
  transaction_ = NumberAt<std::uint64_t>(results[kOfBegin - 1].get(), 0);
  TakeLook(results[kOfBegin - 1].get(), 1);
  results.erase(results.begin(), results.begin() + kOfBegin);
  return results;
}

// (The number must be known before the commit goes off: the server tells by it what became of one
// whose answer was lost.)
bool PostgresConnection::Commit() {
  if (!line_.IsUp() && state_ != State::None) Lost({"", "", "", 0});
  if (state_ == State::Announced && !beginQueued_) state_ = State::None;
  if (state_ == State::None) return true;
  try {
    if (beginQueued_) Exchange();
    unsure_ = {transaction_, line_.Backend()};
    line_.Queue("COMMIT");
    line_.Queue(std::string("SELECT ") + kLook);
    const std::vector<ServerResult> results = line_.Exchange();
    TakeLook(results.back().get(), 0);
  } catch (const ServerFailure& failure) {
    if (failure.IsLine()) {
      if (unsure_.Transaction == 0 || !AskWhetherCommitted(unsure_.Transaction)) Lost(failure);
    } else {
      unsure_ = {};
      RollBack();
      if (failure.IsLock()) return false;
      RaiseServerError(failure);
    }
  }
  unsure_ = {};
  EndTransaction();
  return true;
}

// The line broke behind a commit. A server that starts anew is waited for.
bool PostgresConnection::AskWhetherCommitted(std::uint64_t transaction) {
  constexpr int kTries = 40;
  EndTransaction();
  for (int tries = 1; !line_.IsUp(); ++tries) {
    try {
      RequireUp();
    } catch (const RunTimeError&) {
      if (tries == kTries) throw RunTimeError(3151, kNotKnown);
      std::this_thread::sleep_for(std::chrono::milliseconds(250));
    }
  }
  return WasCommitted(transaction);
}

// Whatever is left of the old line is ended first, so that the answer holds.
bool PostgresConnection::WasCommitted(std::uint64_t transaction) {
  const std::string number = std::to_string(transaction);
  std::string status = "in progress";
  for (int tries = 0; tries < 100 && status == "in progress"; ++tries) {
    if (tries > 0) std::this_thread::sleep_for(std::chrono::milliseconds(50));
    Ask("SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE pid=" +
        std::to_string(unsure_.Backend) + " AND backend_xid::text::bigint=" + number + "::bigint");
    status = PQgetvalue(Ask("SELECT pg_xact_status('" + number + "'::xid8)").get(), 0, 0);
  }
  if (status == "in progress") throw RunTimeError(3151, kNotKnown);
  unsure_ = {};
  return status == "committed";
}

void PostgresConnection::RollBack() {
  const bool sent = state_ == State::Open || beginQueued_ || line_.Queued() > 0;
  EndTransaction();
  if (!sent || !line_.IsUp()) return;
  try {
    line_.Queue("ROLLBACK");
    line_.Exchange();
  } catch (const ServerFailure& failure) {
    // What was queued before it failed, too; or the line broke, and all is taken back by itself.
    if (failure.IsLine()) return;
    try {
      line_.Queue("ROLLBACK");
      line_.Exchange();
    } catch (const ServerFailure&) {
      line_.Disconnect();
    }
  }
}

void PostgresConnection::EndTransaction() {
  state_ = State::None;
  beginQueued_ = false;
  transaction_ = 0;
  keys_.clear();
}

// The transaction is gone with its line. The next one is made at once where that is possible, so
// that the person can go on.
void PostgresConnection::Lost(const ServerFailure& failure) {
  EndTransaction();
  RequireUp();
  throw RunTimeError(3151,
                     "The line to the server broke and was made again. What was being saved was "
                     "not saved; please save again. (" +
                         failure.Message + ")");
}

bool PostgresConnection::MayHaveChanged() {
  if (IsAlone() || state_ == State::Announced) return unseen_;
  return unseen_ || Clock::now() - lastLook_ >= lookEvery_;
}

Connection::Counters PostgresConnection::Look() {
  const bool isKnown =
      IsAlone() || state_ == State::Announced || (unseen_ && Clock::now() - lastLook_ < lookEvery_);
  if (!isKnown) TakeLook(Ask(std::string("SELECT ") + kLook).get(), 0);
  unseen_ = false;
  return seen_;
}

void PostgresConnection::TakeLook(const PGresult* result, int column) {
  seen_.commits = NumberAt<std::uint64_t>(result, column);
  seen_.schema = NumberAt<std::uint64_t>(result, column + 1);
  seen_.generation = NumberAt<std::uint32_t>(result, column + 2);
  unseen_ = true;
  lastLook_ = Clock::now();
}

}  // namespace kvi::jet
