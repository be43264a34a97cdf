#include "jet/engine/Engine.h"

#include <utility>

#include "base/RunTimeError.h"

namespace kvi::jet {

Engine::Engine(std::unique_ptr<Connection> opened)
    : opened_(std::move(opened)),
      connection(*opened_),
      watch(connection),
      tables(connection),
      lock(connection, watch) {}

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
  if (!connection.MayHaveChanged()) return;
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
