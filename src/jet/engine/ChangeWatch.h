#pragma once

#include <cstdint>

#include "jet/engine/Connection.h"

namespace kvi::jet {

// Tells whether another desk changed the file since the last look, by the change counter in the
// file's header: one small read, without a lock. What it promises is exact only while a lock is
// held; without one a change may be seen a moment late.
class ChangeWatch {
 public:
  explicit ChangeWatch(Connection& connection) : connection_(connection) {}

  // The file's own count of commits, as of the last look.
  std::uint32_t FileCounter() const { return counter_; }
  // Counts the changes seen. Rows read under the same number are still as they are in the file.
  std::uint64_t Epoch() const { return epoch_; }
  // Raised when a desk (ours too) changed tables.
  std::uint64_t SchemaEpoch() const { return schemaEpoch_; }
  // Another number when all of the file's content was replaced: no row is the one it was before.
  std::uint32_t Generation() const { return generation_; }

  void Look();
  // Our own commit steps the counter by one; that is no change by others.
  void ExpectOwnCommit() { ++counter_; }
  // Rows read before may not be what the file holds.
  void Distrust() { ++epoch_; }

 private:
  Connection& connection_;
  std::uint32_t counter_ = 0, schema_ = 0, generation_ = 0;
  std::uint64_t epoch_ = 1, schemaEpoch_ = 1;
};

}  // namespace kvi::jet
