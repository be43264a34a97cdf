#include "jet/engine/Connection.h"

#include "base/RunTimeError.h"
#include "jet/NotWaiting.h"
#include "jet/Server.h"
#include "jet/sqlite/SqliteConnection.h"
#ifdef KVI_SERVER
#include "jet/postgres/PostgresConnection.h"
#endif

namespace kvi::jet {

bool Connection::AskToWait() const {
  if (!OnLocked || !HoldsNothing()) return false;
  if (!OnLocked()) throw NotWaiting{};
  return true;
}

namespace {

#ifdef KVI_SERVER
std::unique_ptr<Connection> OpenOnServer(const std::string& path, const std::string& address,
                                         bool exclusive) {
  return std::make_unique<PostgresConnection>(path, address, exclusive);
}
#else
constexpr const char* kNoServerRoom =
    "The database stands on a server, and this program was built without the part for one.";

std::unique_ptr<Connection> OpenOnServer(const std::string&, const std::string&, bool) {
  throw RunTimeError(3343, kNoServerRoom);
}
#endif

}  // namespace

std::unique_ptr<Connection> OpenConnection(const std::string& path, bool exclusive) {
  if (const auto address = ServerNamedIn(path)) return OpenOnServer(path, *address, exclusive);
  return std::make_unique<SqliteConnection>(path, exclusive);
}

bool MakeTablesOnServer(const std::string& path, const std::vector<TableDef>& tables) {
  const auto address = ServerNamedIn(path);
  if (!address) return false;
#ifdef KVI_SERVER
  PostgresConnection(path, *address, true).CreateTables(tables);
  return true;
#else
  (void)tables;
  throw RunTimeError(3343, kNoServerRoom);
#endif
}

}  // namespace kvi::jet
