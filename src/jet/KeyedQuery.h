#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "base/Value.h"
#include "jet/Database.h"

namespace kvi::jet {

struct Translation;

// One query asked for one key after another, for a pass over a large table: translated once, with
// no set kept, and read no further than its taker wants. Shares the database's engine.
class KeyedQuery {
 public:
  // The statement has one literal, a text in the key's place. Raises as OpenRecordset.
  KeyedQuery(Database& database, std::string_view sql);

  // Hands out the rows of the key in the query's order, the columns of each as they are stored,
  // until `take` has enough and says false. It must not move or write. Raises 3075 for a key that
  // would break the statement, 3260 for a lock that lasts.
  void Walk(std::string_view key, const std::function<bool(std::span<const Value>)>& take);

 private:
  std::shared_ptr<OpenFile> engine_;
  std::shared_ptr<const Translation> query_;
  std::vector<Value> row_;
};

}  // namespace kvi::jet
