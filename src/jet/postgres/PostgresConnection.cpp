#include "jet/postgres/PostgresConnection.h"

#include <charconv>
#include <string>
#include <utility>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "jet/engine/FieldRules.h"
#include "jet/engine/StatementRun.h"
#include "jet/postgres/PostgresError.h"
#include "jet/postgres/PostgresStatement.h"
#include "jet/postgres/ServerFunctions.h"

namespace kvi::jet {
namespace {

// More distinct statements than the system has; beyond it something builds them without end.
constexpr std::size_t kMostStatements = 400;
// Of statements that go off later; their answers must fit between two turns of the line.
constexpr std::size_t kMostQueued = 500;

// What a database of ours tells of itself.
constexpr const char* kSettings =
    "SELECT (SELECT value FROM kvi.settings WHERE name='version'),"
    "(SELECT value FROM kvi.settings WHERE name='look_ms'),"
    "current_setting('transaction_read_only')";

}  // namespace

PostgresConnection::PostgresConnection(std::string path, const std::string& address, bool exclusive)
    : path_(std::move(path)), exclusive_(exclusive), line_(address) {
  line_.Connect();
  open_ = true;
  RequireOurs();
  TakeSession();
}

PostgresConnection::~PostgresConnection() = default;

// Nothing is told of a line that breaks while it is closed: what was open on it is taken back.
void PostgresConnection::Close() {
  open_ = false;
  statements_.clear();
  line_.Disconnect();
}

void PostgresConnection::RequireOurs() {
  const char* why = nullptr;
  try {
    const ServerResult settings = Ask(kSettings);
    lookEvery_ = std::chrono::milliseconds(std::atoi(PQgetvalue(settings.get(), 0, 1)));
    readOnly_ = std::string_view(PQgetvalue(settings.get(), 0, 2)) == "on";
    if (std::atoi(PQgetvalue(settings.get(), 0, 0)) == kServerVersion) return;
    why = "is of another version of the program";
  } catch (const RunTimeError& error) {
    if (error.Number == 3151) throw;
    why = "was not made by kvi-server";
  }
  throw RunTimeError(3343, "The database that '" + path_ + "' names on the server " + why + ".");
}

// Who has the database at all, for as long as the line stands: any number of desks, or one.
void PostgresConnection::TakeSession() {
  const ServerResult taken = Ask(exclusive_ ? "SELECT pg_try_advisory_lock(4937290)"
                                            : "SELECT pg_try_advisory_lock_shared(4937290)");
  if (std::string_view(PQgetvalue(taken.get(), 0, 0)) == "t") return;
  Close();
  throw RunTimeError(3045);
}

void PostgresConnection::RequireUp() {
  if (line_.IsUp()) return;
  EndTransaction();
  line_.Connect();
  ++seen_.commits;
  unseen_ = true;
  columns_.clear();
  kept_.Forget();
  TakeSession();
}

Statement& PostgresConnection::Start(std::string_view sql) {
  std::string text(sql);
  if (const auto found = statements_.find(text); found != statements_.end()) return *found->second;
  if (statements_.size() >= kMostStatements)
    std::erase_if(statements_, [](const auto& entry) { return !entry.second->IsBusy(); });
  auto statement = std::make_unique<PostgresStatement>(*this, sql);
  return *statements_.emplace(std::move(text), std::move(statement)).first->second;
}

std::string PostgresConnection::ListSql(const std::string& columns,
                                        const StoredTable& table) const {
  return "SELECT " + columns +
         " FROM json_array_elements_text(?1::json) WITH ORDINALITY AS k(value,place) JOIN " +
         Bracketed(table.Name) + " AS t ON t." + Bracketed(table.Key) +
         "=k.value::bigint ORDER BY k.place";
}

// Of a group the numbers are fetched for many rows at once; a single row takes the next one, so
// that rows of several desks stand in the order in which they came.
std::int64_t PostgresConnection::NextKey(const StoredTable& table) {
  constexpr std::size_t kOfGroup = 500;
  std::vector<std::int64_t>& keys = keys_[table.Name];
  if (keys.empty()) {
    const ServerResult next =
        Run("SELECT nextval(pg_get_serial_sequence($1,'_rid')) FROM generate_series(1,$2::int) "
            "ORDER BY 1 DESC",
            {{kServerText, false, "public.\"" + LCase(table.Name) + "\""},
             {kServerWhole, false, std::to_string(IsAlone() ? kOfGroup : 1)}},
            true);
    for (int row = 0; row < PQntuples(next.get()); ++row)
      keys.push_back(std::atoll(PQgetvalue(next.get(), row, 0)));
  }
  const std::int64_t key = keys.back();
  keys.pop_back();
  return key;
}

void PostgresConnection::CountRows(const PGresult* result) {
  // (The library's routine does not take a constant one.)
  const char* count = PQcmdTuples(const_cast<PGresult*>(result));
  rowsWritten_ = std::atol(count);
  allRowsWritten_ += rowsWritten_;
}

ServerResult PostgresConnection::Ask(const std::string& sql) {
  return Run(sql, {}, true);
}

ServerResult PostgresConnection::Run(const std::string& sql,
                                     const std::vector<Parameter>& parameters, bool reads) {
  ServerResult result = state_ == State::Open
                            ? RunInside(sql, parameters)
                            : RunAlone([&] { line_.Queue(sql, parameters); }, reads).back();
  if (!reads) CountRows(result.get());
  return result;
}

ServerResult PostgresConnection::Answer(const std::string& sql) {
  if (state_ != State::None) return Run(sql, {}, true);
  if (MayHaveChanged()) {
    Look();
    unseen_ = true;  // whoever watches has yet to see it
  }
  const std::uint64_t commits = seen_.commits;
  if (ServerResult known = kept_.Find(sql, commits)) return known;
  const std::vector<std::string> others = kept_.WorthAsking(sql, commits);
  const std::vector<ServerResult> answers = RunAlone(
      [&] {
        for (const std::string& other : others) line_.Queue(other);
        line_.Queue(sql);
      },
      true);
  for (std::size_t i = 0; i < others.size(); ++i) kept_.Keep(others[i], answers[i], commits);
  kept_.Keep(sql, answers.back(), commits);
  return answers.back();
}

// The first statement of a transaction, or one without. What failed has left nothing behind, so it
// can be run again: on another line where this one broke, or when the other desk is done.
std::vector<ServerResult> PostgresConnection::RunAlone(const std::function<void()>& queue,
                                                       bool reads) {
  const bool announced = state_ == State::Announced;
  for (bool again = false;; again = true) {
    try {
      RequireUp();
      if (announced && state_ == State::None) state_ = State::Announced;
      if (announced) QueueBegin();
      queue();
      return Exchange();
    } catch (const ServerFailure& failure) {
      if (announced) RollBack();
      if (failure.IsLock() && AskToWait()) {
        if (announced) state_ = State::Announced;
      } else if (!failure.IsLine() || again || !(reads || announced)) {
        RaiseServerError(failure);
      }
    }
  }
}

// A statement that fails takes itself back, and what stands before it in the transaction stays.
ServerResult PostgresConnection::RunInside(const std::string& sql,
                                           const std::vector<Parameter>& parameters) {
  std::size_t before = 0;
  try {
    before = line_.Queued();
    line_.Queue("SAVEPOINT row");
    line_.Queue(sql, parameters);
    line_.Queue("RELEASE row");
    std::vector<ServerResult> results = Exchange();
    if (PQresultStatus(results[before + 1].get()) == PGRES_COMMAND_OK) ++stepsOfCommit_;
    return results[before + 1];
  } catch (const ServerFailure& failure) {
    if (failure.IsLine()) Lost(failure);
    if (failure.Place <= before || failure.IsLock() || !TakeRowBack()) RollBack();
    RaiseServerError(failure);
  }
}

bool PostgresConnection::TakeRowBack() {
  try {
    line_.Queue("ROLLBACK TO row");
    line_.Queue("RELEASE row");
    line_.Exchange();
    return true;
  } catch (const ServerFailure&) {
    return false;
  }
}

void PostgresConnection::RunLater(const std::string& sql,
                                  const std::vector<Parameter>& parameters) {
  try {
    if (state_ == State::Announced && !line_.IsUp()) {
      RequireUp();
      state_ = State::Announced;
    }
    if (state_ == State::Announced && !beginQueued_) QueueBegin();
    line_.Queue(sql, parameters);
    rowsWritten_ = 1;
    ++allRowsWritten_;
    if (line_.Queued() >= kMostQueued) Exchange();
  } catch (const ServerFailure& failure) {
    if (failure.IsLine()) Lost(failure);
    RollBack();
    RaiseServerError(failure);
  }
}

const PostgresConnection::Column* PostgresConnection::ColumnOf(Oid table, int column) const {
  const auto found = columns_.find({table, column});
  return found == columns_.end() ? nullptr : &found->second;
}

}  // namespace kvi::jet
