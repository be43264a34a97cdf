#pragma once

#include <string>
#include <vector>

#include "jet/sets/FieldList.h"
#include "jet/sets/QueryCache.h"
#include "jet/sets/RecordsetImpl.h"

struct sqlite3;

namespace kvi::jet {

// The rows of a query as they were when it was opened, with these of its fields, or with all where
// none is named. It cannot be written.
class Snapshot : public RecordsetImpl {
 public:
  Snapshot(std::shared_ptr<Engine> engine, const Query& query,
           const std::vector<std::string>& wanted = {});
  ~Snapshot() override;

  int RecordCount() const override { return static_cast<int>(Size()); }
  const std::vector<FieldDef>& Fields() const override { return fields_.All(); }
  const Value& Field(std::string_view name) override;
  // Through a table in memory that holds the rows, each column indexed.
  void FindFirst(std::string_view criterion) override;

 protected:
  std::size_t Size() const override { return size_; }

 private:
  class Finder;

  FieldList fields_;
  std::vector<Value> cells_;
  std::size_t size_ = 0;
  std::unique_ptr<Finder> finder_;
};

}  // namespace kvi::jet
