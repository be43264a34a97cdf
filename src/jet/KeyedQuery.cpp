#include "jet/KeyedQuery.h"

#include <string>

#include "base/RunTimeError.h"
#include "jet/KeyedRows.h"
#include "jet/engine/StatementRun.h"
#include "jet/sets/QueryCache.h"

namespace kvi::jet {

KeyedQuery::KeyedQuery(Database& database, std::string_view sql) : engine_(database.engine_) {
  if (!engine_) throw RunTimeError(3420);
  engine_->RequireOpen();
  engine_->Look();
  const auto query = engine_->queries.Find(sql);
  if (query->translation.kind != Translation::Kind::Select) throw RunTimeError(3219);
  query_ = std::shared_ptr<const Translation>(query, &query->translation);
}

void KeyedQuery::Walk(std::string_view key,
                      const std::function<bool(std::span<const Value>)>& take) {
  engine_->RequireOpen();
  std::string unquoted;
  StatementRun run(engine_->connection, query_->Sql);
  run.Bind(1, JoinedKey(key, unquoted));
  row_.resize(static_cast<std::size_t>(run.Columns()));
  while (run.Step()) {
    for (std::size_t column = 0; column < row_.size(); ++column)
      row_[column] = run.Plain(static_cast<int>(column));
    if (!take(row_)) break;
  }
}

}  // namespace kvi::jet
