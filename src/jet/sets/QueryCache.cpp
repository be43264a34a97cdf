#include "jet/sets/QueryCache.h"

#include <utility>

namespace kvi::jet {
namespace {

// Statements differ in the numbers and names written into them, so their texts have no end.
constexpr std::size_t kMostQueries = 256;

}  // namespace

std::shared_ptr<const Query> QueryCache::Find(std::string_view sql) {
  if (std::exchange(tablesSeen_, engine_.tables.Epoch()) != engine_.tables.Epoch()) {
    queries_.clear();
    shapes_.clear();
  }
  std::string text(sql);
  if (const auto found = queries_.find(text); found != queries_.end()) return found->second;
  std::shared_ptr<Query> query = Make(sql);
  if (queries_.size() >= kMostQueries) queries_.clear();
  return queries_.emplace(std::move(text), std::move(query)).first->second;
}

std::shared_ptr<Query> QueryCache::Make(std::string_view sql) {
  auto query = std::make_shared<Query>();
  query->translation = Translate(sql, ShapeOf(), engine_.connection.Form());
  const Translation& translation = query->translation;
  const auto table = translation.Table.empty() ? nullptr : engine_.tables.Find(translation.Table);
  if (table && !table->Key.empty()) {
    std::shared_ptr<QueryShape>& shape = shapes_[translation.Sql];
    if (!shape) shape = std::make_shared<QueryShape>(engine_.connection, table, translation);
    query->shape = shape;
  }
  return query;
}

ShapeOfTable QueryCache::ShapeOf() {
  return [this](std::string_view table) -> TableShape {
    const auto stored = engine_.tables.Find(table);
    if (!stored) return {};
    return {&stored->Fields, stored->Versioned, &stored->TrimmedKeys};
  };
}

}  // namespace kvi::jet
