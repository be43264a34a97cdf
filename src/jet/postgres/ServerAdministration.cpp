#include <libpq-fe.h>

#include <algorithm>
#include <memory>
#include <string_view>

#include "base/RunTimeError.h"
#include "jet/Server.h"
#include "jet/postgres/ServerFunctions.h"
#include "jet/postgres/ServerTables.h"

namespace kvi::jet {
namespace {

constexpr int kInvalidCall = 5, kRefused = 3000, kNotReached = 3051, kStands = 3204,
              kNotOurs = 3343;
// Debian 12's; what is newer serves, too.
constexpr int kOldestServer = 150000;
constexpr const char* kAdministrators = "postgres";

// A connection of the administrator's, whose failures are told in the server's own sentence.
class Session {
 public:
  explicit Session(const std::string& database) : connection_(Connect(database), PQfinish) {
    if (PQstatus(connection_.get()) != CONNECTION_OK) throw RunTimeError(kNotReached, Message());
    Run("SET client_min_messages = warning");
  }

  // The rows of the last statement, the cells of each in the order of the columns.
  std::vector<std::vector<std::string>> Rows(const std::string& sql) {
    const std::unique_ptr<PGresult, void (*)(PGresult*)> result(
        PQexec(connection_.get(), sql.c_str()), PQclear);
    const ExecStatusType status = PQresultStatus(result.get());
    if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK)
      throw RunTimeError(kRefused, Message());
    std::vector<std::vector<std::string>> rows(static_cast<std::size_t>(PQntuples(result.get())));
    for (std::size_t row = 0; row < rows.size(); ++row)
      for (int column = 0; column < PQnfields(result.get()); ++column)
        rows[row].emplace_back(PQgetvalue(result.get(), static_cast<int>(row), column));
    return rows;
  }
  void Run(const std::string& sql) { Rows(sql); }
  bool Finds(const std::string& sql) { return !Rows(sql).empty(); }
  std::string First(const std::string& sql) { return Rows(sql).at(0).at(0); }

  int Version() const { return PQserverVersion(connection_.get()); }
  // As the server keeps it, so that the password itself is in none of its logs.
  std::string Scrambled(const std::string& password, const std::string& role) {
    const std::unique_ptr<char, void (*)(void*)> text(
        PQencryptPasswordConn(connection_.get(), password.c_str(), role.c_str(), "scram-sha-256"),
        PQfreemem);
    if (!text) throw RunTimeError(kRefused, Message());
    return text.get();
  }

 private:
  static PGconn* Connect(const std::string& database) {
    const char* names[] = {"dbname", "application_name", nullptr};
    const char* values[] = {database.c_str(), "kvi-server", nullptr};
    return PQconnectdbParams(names, values, 0);
  }
  // Its first line, of which the server's own sentence stands behind a word in capitals.
  std::string Message() const {
    std::string_view text = PQerrorMessage(connection_.get());
    text = text.substr(0, text.find('\n'));
    for (const std::string_view word : {"ERROR:  ", "FATAL:  "})
      if (const std::size_t at = text.find(word); at != text.npos)
        return std::string(text.substr(at + word.size()));
    return "The server does not answer: " + std::string(text);
  }

  std::unique_ptr<PGconn, void (*)(PGconn*)> connection_;
};

// Names of ours need no quotes anywhere, in no file and on no command line.
void RequireName(const std::string& name) {
  constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz_", kDigits = "0123456789";
  const bool fits = !name.empty() && name.size() < 60 && kLetters.find(name[0]) != kLetters.npos &&
                    std::ranges::all_of(name, [&](char c) {
                      return kLetters.find(c) != kLetters.npos || kDigits.find(c) != kDigits.npos;
                    });
  if (!fits)
    throw RunTimeError(kInvalidCall,
                       "'" + name + "' is no name for it: small letters, digits and _ make one.");
}

Session AsAdministrator(const std::string& database) {
  const std::string sudo = "Run it as the server's administrator: sudo -u postgres kvi-server ...";
  try {
    Session session(database);
    if (session.First("SELECT rolsuper FROM pg_roles WHERE rolname = current_user") != "t")
      throw RunTimeError(kNotReached, sudo);
    if (session.Version() < kOldestServer)
      throw RunTimeError(kNotOurs, "The server is of version " +
                                       std::to_string(session.Version() / 10000) +
                                       "; 15 or a later one is needed.");
    return session;
  } catch (const RunTimeError& error) {
    const bool unknownUser = error.Description.find("role \"") != std::string::npos ||
                             error.Description.find("authentication failed") != std::string::npos;
    throw unknownUser ? RunTimeError(kNotReached, sudo + " (" + error.Description + ")") : error;
  }
}

// What was made so far is dropped unless Keep() is called.
class Undoing {
 public:
  explicit Undoing(Session& session) : session_(session) {}
  ~Undoing() {
    try {
      for (auto made = made_.rbegin(); made != made_.rend(); ++made) session_.Run("DROP " + *made);
    } catch (const RunTimeError&) {
      // The first failure is the one to tell.
    }
  }
  Undoing(const Undoing&) = delete;
  Undoing& operator=(const Undoing&) = delete;

  void Make(const std::string& what, const std::string& how) {
    session_.Run("CREATE " + what + " " + how);
    made_.push_back(what);
  }
  void Keep() { made_.clear(); }

 private:
  Session& session_;
  std::vector<std::string> made_;
};

bool HasRole(Session& session, const std::string& role) {
  return session.Finds("SELECT 1 FROM pg_roles WHERE rolname = '" + role + "'");
}

void MakeRoles(Session& session, Undoing& undoing, const ServerSetUp& setUp) {
  if (!HasRole(session, setUp.Owner)) undoing.Make("ROLE " + setUp.Owner, "NOLOGIN");
  if (!HasRole(session, setUp.Desk))
    undoing.Make("ROLE " + setUp.Desk,
                 "LOGIN PASSWORD '" + session.Scrambled(setUp.AskPassword(), setUp.Desk) + "'");
  session.Run("GRANT " + setUp.Owner + " TO " + setUp.Desk);
}

// A desk that hangs within a save loses its lock after this time, and one whose line is dead, too.
constexpr const char* kSettings[] = {"idle_in_transaction_session_timeout = '10s'",
                                     "tcp_keepalives_idle = 10", "tcp_keepalives_interval = 5",
                                     "tcp_keepalives_count = 2"};

void SetRights(Session& session, const ServerSetUp& setUp) {
  const std::string database = "DATABASE " + setUp.Database;
  session.Run("REVOKE CONNECT ON " + database + " FROM PUBLIC");
  session.Run("GRANT CONNECT ON " + database + " TO " + setUp.Owner);
  for (const char* setting : kSettings) session.Run("ALTER " + database + " SET " + setting);
  // What a desk makes belongs to all desks.
  session.Run("ALTER ROLE " + setUp.Desk + " IN " + database + " SET role = " + setUp.Owner);
}

void MakeTables(const ServerSetUp& setUp, const std::vector<TableDef>& tables) {
  Session database(setUp.Database);
  database.Run("BEGIN");
  database.Run("SET LOCAL ROLE " + setUp.Owner);
  database.Run(ServerFunctions());
  for (const TableDef& table : tables)
    for (const std::string& sql : ServerTableSql(table)) database.Run(sql);
  database.Run("COMMIT");
}

}  // namespace

void CreateServerDatabase(const ServerSetUp& setUp, const std::vector<TableDef>& tables) {
  for (const std::string& name : {setUp.Database, setUp.Owner, setUp.Desk}) RequireName(name);
  Session server = AsAdministrator(kAdministrators);
  if (server.Finds("SELECT 1 FROM pg_database WHERE datname = '" + setUp.Database + "'"))
    throw RunTimeError(kStands, "The database " + setUp.Database + " is there already.");
  Undoing undoing(server);
  MakeRoles(server, undoing, setUp);
  undoing.Make("DATABASE " + setUp.Database,
               "OWNER " + setUp.Owner + " ENCODING 'UTF8' LOCALE 'C' TEMPLATE template0");
  MakeTables(setUp, tables);
  if (setUp.Fill) setUp.Fill("dbname=" + setUp.Database);
  SetRights(server, setUp);
  undoing.Keep();
}

std::vector<std::pair<std::string, std::string>> WatchServerDatabase(const std::string& database) {
  RequireName(database);
  Session session(database);
  if (!session.Finds("SELECT 1 FROM pg_tables WHERE schemaname = 'kvi' AND tablename = 'settings'"))
    throw RunTimeError(kNotOurs, "The database " + database + " is no stockroom.");
  const std::string version =
      session.First("SELECT value FROM kvi.settings WHERE name = 'version'");
  if (version != std::to_string(kServerVersion))
    throw RunTimeError(kNotOurs, "The database " + database + " is of version " + version +
                                     ", this program of " + std::to_string(kServerVersion) + ".");
  constexpr const char* kNames[] = {"version", "size",    "tables",  "rows, about",
                                    "desks",   "writing", "waiting", "longest write"};
  const auto row =
      session
          .Rows(
              "SELECT s.value, pg_size_pretty(pg_database_size(current_database())), t.tables, "
              "t.rows, a.desks, a.writing, a.waiting, a.longest FROM kvi.settings s, "
              "(SELECT count(*) AS tables, sum(n_live_tup) AS rows FROM pg_stat_user_tables "
              "WHERE schemaname = 'public') t, "
              "(SELECT count(*) AS desks, count(*) FILTER (WHERE backend_xid IS NOT NULL) AS "
              "writing, count(*) FILTER (WHERE wait_event_type = 'Lock') AS waiting, "
              "coalesce(max(now() - xact_start) FILTER (WHERE backend_xid IS NOT NULL), '0')::"
              "interval(1) AS longest FROM pg_stat_activity WHERE datname = current_database() "
              "AND backend_type = 'client backend' AND pid <> pg_backend_pid()) a "
              "WHERE s.name = 'version'")
          .at(0);
  std::vector<std::pair<std::string, std::string>> state;
  for (std::size_t i = 0; i < row.size(); ++i) state.emplace_back(kNames[i], row[i]);
  return state;
}

std::vector<std::string> StepsToReach(const ServerSetUp& setUp) {
  Session server(kAdministrators);
  std::vector<std::string> steps{"in " + server.First("SHOW hba_file") +
                                 ", for the desks' network (samenet is the server's "
                                 "own):\n  hostssl " +
                                 setUp.Database + " " + setUp.Desk + " samenet scram-sha-256"};
  if (server.First("SHOW ssl") != "on")
    steps.push_back("in postgresql.conf: ssl = on, with ssl_cert_file and ssl_key_file");
  const bool isAlone = server.First("SHOW listen_addresses") == "localhost";
  if (isAlone) steps.push_back("in postgresql.conf: listen_addresses = '*'");
  steps.push_back(isAlone ? "systemctl restart postgresql" : "systemctl reload postgresql");
  return steps;
}

}  // namespace kvi::jet
