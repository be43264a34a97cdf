#include "jet/engine/Connection.h"

#include "jet/NotWaiting.h"
#include "jet/sqlite/SqliteConnection.h"

namespace kvi::jet {

bool Connection::AskToWait() const {
  if (!OnLocked || !HoldsNothing()) return false;
  if (!OnLocked()) throw NotWaiting{};
  return true;
}

std::unique_ptr<Connection> OpenConnection(const std::string& path, bool exclusive) {
  return std::make_unique<SqliteConnection>(path, exclusive);
}

}  // namespace kvi::jet
