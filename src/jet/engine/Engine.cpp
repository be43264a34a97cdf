#include "jet/engine/Engine.h"

#include <sqlite3.h>

#include <utility>

#include "base/RunTimeError.h"

namespace kvi::jet {
namespace {

// Statements differ in the numbers and names written into them, so their texts have no end.
constexpr std::size_t kMostQueries = 256;

}  // namespace

Engine::Engine(const std::string& path, bool exclusive)
    : connection(path, exclusive), watch(connection), schema(connection), lock(connection, watch) {}

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
  ForgetSchema();
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

void Engine::ForgetSchema() {
  schema.Forget();
  queries_.clear();
  shapes_.clear();
}

ShapeOfTable Engine::ShapeOf() {
  return [this](std::string_view table) -> TableShape {
    const auto stored = schema.Find(table);
    if (!stored) return {};
    return {&stored->Fields, stored->Versioned};
  };
}

std::shared_ptr<const Engine::Query> Engine::QueryOf(std::string_view sql) {
  std::string text(sql);
  if (const auto found = queries_.find(text); found != queries_.end()) return found->second;
  auto query = std::make_shared<Query>();
  query->translation = Translate(sql, ShapeOf());
  const Translation& translation = query->translation;
  const auto table = translation.Table.empty() ? nullptr : schema.Find(translation.Table);
  if (table && !table->Key.empty()) {
    std::shared_ptr<QueryShape>& shape = shapes_[translation.Sql];
    if (!shape) shape = std::make_shared<QueryShape>(table, translation);
    query->shape = shape;
  }
  if (queries_.size() >= kMostQueries) queries_.clear();
  return queries_.emplace(std::move(text), std::move(query)).first->second;
}

}  // namespace kvi::jet
