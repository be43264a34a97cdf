#include "jet/engine/Engine.h"

#include <sqlite3.h>

#include <utility>

#include "base/RunTimeError.h"

namespace kvi::jet {

Engine::Engine(const std::string& path, bool exclusive)
    : connection(path, exclusive), watch(connection), tables(connection), lock(connection, watch) {}

Engine::~Engine() {
  Close();
}

void Engine::RequireOpen() const {
  if (!IsOpen()) throw RunTimeError(3420);
}

void Engine::Close() {
  if (!IsOpen()) return;
  lock.GiveBack();
  connection.Close();
}

void Engine::Look() {
  const int state = sqlite3_txn_state(connection.Handle(), "main");
  if (state == SQLITE_TXN_WRITE) return;
  if (state == SQLITE_TXN_READ) {
    // Taking the lock told the engine already whether the file is another than before.
    unsigned version = 0;
    sqlite3_file_control(connection.Handle(), "main", SQLITE_FCNTL_DATA_VERSION, &version);
    if (std::exchange(versionLookedAt_, version) == version) return;
  }
  watch.Look();
  if (watch.SchemaEpoch() == schemaEpoch_) return;
  schemaEpoch_ = watch.SchemaEpoch();
  tables.Forget();
}

void Engine::Glance() {
  constexpr int kMostRows = 16;
  constexpr std::chrono::milliseconds kLongest{2};
  const auto now = std::chrono::steady_clock::now();
  if (++glances_ < kMostRows && now - lastLook_ < kLongest) return;
  glances_ = 0;
  lastLook_ = now;
  Look();
}

}  // namespace kvi::jet
