#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "jet/dialect/JetSql.h"
#include "jet/engine/Engine.h"
#include "jet/sets/QueryShape.h"

namespace kvi::jet {

// A statement's translation, and for a dynaset what is known of its shape (else null).
struct Query {
  Translation translation;
  std::shared_ptr<QueryShape> shape;
};

// The statements translated so far, by their text. They are forgotten once tables changed.
class QueryCache {
 public:
  explicit QueryCache(Engine& engine) : engine_(engine) {}

  // Raises as Translate.
  std::shared_ptr<const Query> Find(std::string_view sql);

 private:
  std::shared_ptr<Query> Make(std::string_view sql);
  // What the dialect asks of a table.
  ShapeOfTable ShapeOf();

  Engine& engine_;
  std::uint64_t tablesSeen_ = 0;
  std::unordered_map<std::string, std::shared_ptr<const Query>> queries_;
  std::unordered_map<std::string, std::shared_ptr<QueryShape>> shapes_;
};

// What stands behind a Database.
struct OpenFile : Engine {
  using Engine::Engine;
  QueryCache queries{*this};
};

}  // namespace kvi::jet
