#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/Value.h"

namespace kvi::jet {

// Texts are equal here as in a statement's comparison.
struct TextHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const;
};
struct TextEqual {
  using is_transparent = void;
  bool operator()(std::string_view left, std::string_view right) const;
};

// What a statement compares with where `key` was joined into it between single quotes. Raises 3075
// for a key with a quote in it that would end the text, as the statement does.
std::string_view JoinedKey(std::string_view key, std::string& unquoted);

// What a pass needs of a table's rows, by a text key: the table is walked once, instead of a query
// for each key. A key finds what the query "... = '" + key + "'" would.
template <class Row>
class KeyedRows {
 public:
  KeyedRows() = default;
  KeyedRows(KeyedRows&&) = default;

  // Null equals no key.
  void Add(const Value& key, Row row) {
    if (key.IsNull()) return;
    std::string text = key.Text();
    if (!last_ || last_->first != text) last_ = &*rows_.try_emplace(std::move(text)).first;
    last_->second.push_back(std::move(row));
  }

  // In the order in which they were added. 3075 as JoinedKey.
  std::span<const Row> Of(std::string_view key) const {
    std::string unquoted;
    const auto found = rows_.find(JoinedKey(key, unquoted));
    return found == rows_.end() ? std::span<const Row>() : found->second;
  }
  // Null where there is none.
  const Row* FirstOf(std::string_view key) const {
    const auto rows = Of(key);
    return rows.empty() ? nullptr : &rows.front();
  }

 private:
  using Map = std::unordered_map<std::string, std::vector<Row>, TextHash, TextEqual>;
  Map rows_;
  typename Map::value_type* last_ = nullptr;  // rows of one key often come together
};

}  // namespace kvi::jet
