#include "jet/postgres/PostgresLine.h"

#include <algorithm>
#include <array>
#include <exception>
#include <utility>

#include "base/RunTimeError.h"

namespace kvi::jet {
namespace {

constexpr int kCannotConnect = 3151;

// What a desk asks of every line: a server that does not answer is noticed within seconds, and what
// the desk holds is free soon after it hangs.
constexpr const char* kSettings =
    "SET search_path=kvi,pg_catalog,public;SET datestyle='ISO,MDY';SET lock_timeout=2000;"
    "SELECT set_config('idle_in_transaction_session_timeout','10000',false) WHERE "
    "current_setting('idle_in_transaction_session_timeout')='0';"
    "SET client_min_messages=error;SET jit=off;SET extra_float_digits=1";

std::string OneLine(const char* text) {
  std::string line = text ? text : "";
  std::ranges::replace_if(
      line, [](char c) { return c == '\n' || c == '\t'; }, ' ');
  while (line.ends_with(' ')) line.pop_back();
  return line;
}

std::string FieldOf(const PGresult* result, int field) {
  const char* text = PQresultErrorField(result, field);
  return text ? text : "";
}

}  // namespace

bool ServerFailure::IsLine() const {
  // Ended by an administrator or a timeout, or the server is starting or stopping.
  return State.empty() || State.starts_with("57P") || State.starts_with("08") || State == "25P03";
}

bool ServerFailure::IsLock() const {
  return State == "55P03" || State == "40P01" || State == "40001";
}

bool PostgresLine::IsUp() const {
  return connection_ && !broken_ && PQstatus(connection_.get()) == CONNECTION_OK;
}

void PostgresLine::Connect() {
  entries_.clear();
  queued_ = 0;
  prepared_.clear();
  broken_ = false;
  const std::array<const char*, 10> words{
      "connect_timeout",           "keepalives_idle",  "keepalives_interval",
      "keepalives_count",          "tcp_user_timeout", "client_encoding",
      "fallback_application_name", "dbname",           nullptr};
  const std::array<const char*, 10> values{
      "5", "10", "3", "3", "10000", "UTF8", "kestvar-inventory", address_.c_str(), nullptr};
  connection_.reset(PQconnectdbParams(words.data(), values.data(), 1));
  if (PQstatus(connection_.get()) != CONNECTION_OK) {
    const std::string why = OneLine(PQerrorMessage(connection_.get()));
    connection_.reset();
    throw RunTimeError(kCannotConnect, DescriptionOf(kCannotConnect) + " (" + why + ")");
  }
  const ServerResult set(PQexec(connection_.get(), kSettings), FreeResult());
  if (PQresultStatus(set.get()) != PGRES_COMMAND_OK) FailLine();
  PQenterPipelineMode(connection_.get());
  ++number_;
}

void PostgresLine::Queue(std::string_view sql, const std::vector<Parameter>& parameters) {
  std::string key(sql);
  std::vector<Oid> types;
  std::vector<const char*> values;
  for (const Parameter& parameter : parameters) {
    types.push_back(parameter.Type);
    values.push_back(parameter.IsNull ? nullptr : parameter.Text.c_str());
    key.append(1, '\x01').append(std::to_string(parameter.Type));
  }
  const int count = static_cast<int>(types.size());
  auto found = prepared_.find(key);
  if (found == prepared_.end()) {
    found = prepared_.emplace(key, "k" + std::to_string(++names_)).first;
    if (PQsendPrepare(connection_.get(), found->second.c_str(), std::string(sql).c_str(), count,
                      types.data()) == 0)
      FailLine();
    entries_.push_back({key});
  }
  if (PQsendQueryPrepared(connection_.get(), found->second.c_str(), count, values.data(), nullptr,
                          nullptr, 0) == 0)
    FailLine();
  entries_.push_back({});
  ++queued_;
}

ServerFailure PostgresLine::FailureOf(const PGresult* result, std::size_t place) const {
  std::string name = FieldOf(result, PG_DIAG_COLUMN_NAME);
  if (name.empty()) name = FieldOf(result, PG_DIAG_CONSTRAINT_NAME);
  std::string message = FieldOf(result, PG_DIAG_MESSAGE_PRIMARY);
  if (message.empty()) message = OneLine(PQerrorMessage(connection_.get()));
  return {FieldOf(result, PG_DIAG_SQLSTATE), std::move(message), std::move(name), place};
}

void PostgresLine::FailLine() {
  broken_ = true;
  throw ServerFailure{"", connection_ ? OneLine(PQerrorMessage(connection_.get())) : "", "", 0};
}

std::vector<ServerResult> PostgresLine::Exchange() {
  std::vector<ServerResult> results;
  if (entries_.empty()) return results;
  if (PQpipelineSync(connection_.get()) == 0) FailLine();
  std::unique_ptr<ServerFailure> failure;
  for (const Entry& entry : std::exchange(entries_, {})) {
    ServerResult result(PQgetResult(connection_.get()), FreeResult());
    if (!result) FailLine();
    const ExecStatusType status = PQresultStatus(result.get());
    const bool good = status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK;
    if (!good && !failure && status != PGRES_PIPELINE_ABORTED)
      failure = std::make_unique<ServerFailure>(FailureOf(result.get(), results.size()));
    if (PQstatus(connection_.get()) != CONNECTION_OK) {
      broken_ = true;
      throw failure ? *failure : ServerFailure{"", "", "", 0};
    }
    if (!good && !entry.prepares.empty()) prepared_.erase(entry.prepares);
    if (entry.prepares.empty()) results.push_back(std::move(result));
    if (PQgetResult(connection_.get()) != nullptr) FailLine();  // the end of the statement
  }
  queued_ = 0;
  const ServerResult sync(PQgetResult(connection_.get()), FreeResult());
  if (PQresultStatus(sync.get()) != PGRES_PIPELINE_SYNC && !failure) FailLine();
  if (failure) {
    if (failure->IsLine()) broken_ = true;
    throw *failure;
  }
  return results;
}

void PostgresLine::Copy(const std::string& sql, const std::function<bool(std::string&)>& next) {
  PGconn* connection = connection_.get();
  if (PQexitPipelineMode(connection) == 0) FailLine();
  ServerResult result(PQexec(connection, sql.c_str()), FreeResult());
  std::exception_ptr brokenOff;
  if (PQresultStatus(result.get()) == PGRES_COPY_IN) {
    try {
      for (std::string line; next(line);)
        if (PQputCopyData(connection, line.data(), static_cast<int>(line.size())) != 1) FailLine();
    } catch (...) {
      brokenOff = std::current_exception();
    }
    if (PQputCopyEnd(connection, brokenOff ? "broken off" : nullptr) != 1) FailLine();
    result.reset(PQgetResult(connection), FreeResult());
    while (PGresult* end = PQgetResult(connection)) PQclear(end);
  }
  const bool good = PQresultStatus(result.get()) == PGRES_COMMAND_OK;
  const ServerFailure failure = good ? ServerFailure() : FailureOf(result.get(), 0);
  if (PQstatus(connection) != CONNECTION_OK || PQenterPipelineMode(connection) == 0) FailLine();
  if (brokenOff) std::rethrow_exception(brokenOff);
  if (!good) throw failure;
}

}  // namespace kvi::jet
