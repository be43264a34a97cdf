#include "jet/engine/Connection.h"

#include "jet/NotWaiting.h"
#include "jet/sqlite/SqliteConnection.h"
#ifdef KVI_SERVER
#include "jet/postgres/PostgresConnection.h"
#include "jet/postgres/ServerFile.h"
#endif

namespace kvi::jet {

bool Connection::AskToWait() const {
  if (!OnLocked || !HoldsNothing()) return false;
  if (!OnLocked()) throw NotWaiting{};
  return true;
}

std::unique_ptr<Connection> OpenConnection(const std::string& path, bool exclusive) {
#ifdef KVI_SERVER
  if (const auto address = ReadServerFile(path))
    return std::make_unique<PostgresConnection>(path, *address, exclusive);
#endif
  return std::make_unique<SqliteConnection>(path, exclusive);
}

#ifdef KVI_SERVER
bool MakeTablesOnServer(const std::string& path, const std::vector<TableDef>& tables) {
  const auto address = ReadServerFile(path);
  if (!address) return false;
  PostgresConnection(path, *address, true).CreateTables(tables);
  return true;
}
#else
bool MakeTablesOnServer(const std::string&, const std::vector<TableDef>&) {
  return false;
}
#endif

}  // namespace kvi::jet
