#pragma once

#include <cstdint>

#include "jet/engine/Connection.h"

namespace kvi::jet {

// Tells whether another desk wrote since the last look, by the engine's counters. What it promises
// is exact only while a lock is held; without one a change may be seen a moment late.
class ChangeWatch {
 public:
  explicit ChangeWatch(Connection& connection) : connection_(connection) {}

  // The engine's own count of commits, as of the last look.
  std::uint64_t Commits() const { return seen_.commits; }
  // Counts the changes seen. Rows read under the same number are still as they are in the database.
  std::uint64_t Epoch() const { return epoch_; }
  // Raised when a desk (ours too) changed tables.
  std::uint64_t SchemaEpoch() const { return schemaEpoch_; }
  // Another number when all of the file's content was replaced: no row is the one it was before.
  std::uint32_t Generation() const { return seen_.generation; }

  void Look();
  // Our own commit is no change by others.
  void ExpectOwnCommit() { seen_.commits += connection_.StepsOfCommit(); }
  // Rows read before may not be what the database holds.
  void Distrust() { ++epoch_; }

 private:
  Connection& connection_;
  Connection::Counters seen_;
  std::uint64_t epoch_ = 1, schemaEpoch_ = 1;
};

}  // namespace kvi::jet
