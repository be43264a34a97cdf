#include "base/RunTimeError.h"
#include "jet/Database.h"
#include "jet/sets/QueryCache.h"

namespace kvi::jet {

WriteBatch::WriteBatch(Database& database) : engine_(database.engine_) {
  if (!engine_) throw RunTimeError(3420);
  engine_->RequireOpen();
  engine_->lock.EnterBatch(false);
}

WriteBatch::~WriteBatch() {
  try {
    Finish();
  } catch (const RunTimeError&) {
    // What Finish() would have told; the pass failed already or did not care.
  }
}

void WriteBatch::Finish() {
  if (finished_) return;
  finished_ = true;
  const LeavingBatch leaving{engine_->lock};
  if (engine_->IsOpen() && engine_->lock.IsOutermostBatch()) engine_->lock.CommitGroup();
}

}  // namespace kvi::jet
