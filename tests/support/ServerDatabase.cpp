#include "support/ServerDatabase.h"

#include <libpq-fe.h>
#include <unistd.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <stdexcept>

#include "jet/postgres/ServerFunctions.h"

namespace kvi::test {
namespace {

class Session {
 public:
  explicit Session(const std::string& conninfo)
      : connection_(PQconnectdb(conninfo.c_str()), PQfinish) {
    Run("SET client_min_messages = warning");
  }

  // The first field of the answer, "" for none.
  std::string Run(const std::string& sql) {
    const std::unique_ptr<PGresult, void (*)(PGresult*)> result(
        PQexec(connection_.get(), sql.c_str()), PQclear);
    const auto status = PQresultStatus(result.get());
    if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK)
      throw std::runtime_error(PQerrorMessage(connection_.get()));
    return PQntuples(result.get()) > 0 ? PQgetvalue(result.get(), 0, 0) : "";
  }

 private:
  std::unique_ptr<PGconn, void (*)(PGconn*)> connection_;
};

std::string In(const std::string& database) {
  return TestServer() + " dbname=" + database;
}

// The database that the others are copies of. The first test makes it; another one where the
// functions have changed since. A desk looks each time whether others wrote, as on a file, so that
// no test depends on how long something took.
std::string Template() {
  const std::string functions =
      jet::ServerFunctions() + ";UPDATE kvi.settings SET value='0' WHERE name='look_ms';";
  const std::string name = "kvi_template_" + std::to_string(std::hash<std::string>()(functions));
  const std::string wanted = "SELECT 1 FROM pg_database WHERE datname='" + name + "'";
  Session server(In("postgres"));
  if (!server.Run(wanted).empty()) return name;
  server.Run("SELECT pg_advisory_lock(1)");
  if (server.Run(wanted).empty()) {
    const std::string unfinished = name + "_new";
    server.Run("DROP DATABASE IF EXISTS " + unfinished);
    server.Run("CREATE DATABASE " + unfinished);
    Session(In(unfinished)).Run("BEGIN;" + functions + "COMMIT");
    server.Run("ALTER DATABASE " + unfinished + " RENAME TO " + name);
  }
  return name;
}

}  // namespace

std::string TestServer() {
  const char* server = std::getenv("KVI_TEST_SERVER");
  return server == nullptr ? "" : server;
}

std::string AskServer(const std::string& database, const std::string& sql) {
  return Session(In(database)).Run(sql);
}

ServerDatabase::ServerDatabase() {
  if (TestServer().empty()) throw std::runtime_error("no test server");
  static int number = 0;
  name_ = "kvi_" + std::to_string(getpid()) + "_" + std::to_string(++number);
  const std::string from = Template();
  AskServer("postgres", "CREATE DATABASE " + name_ + " TEMPLATE " + from);
  conninfo_ = In(name_);
}

ServerDatabase::~ServerDatabase() {
  try {
    AskServer("postgres", "DROP DATABASE " + name_ + " WITH (FORCE)");
  } catch (const std::exception&) {
    // It goes with the server.
  }
}

}  // namespace kvi::test
