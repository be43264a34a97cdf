#include "base/RunTimeError.h"
#include "jet/Database.h"
#include "jet/engine/Engine.h"

namespace kvi::jet {

WriteBatch::WriteBatch(Database& database, Commit commit)
    : engine_(database.engine_), commit_(commit) {
  if (!engine_) throw RunTimeError(3420);
  engine_->RequireOpen();
  engine_->lock.EnterBatch(commit_ == Commit::AtOnce);
}

WriteBatch::~WriteBatch() {
  if (finished_) return;
  try {
    if (commit_ == Commit::AtOnce) engine_->lock.DropGroup();
    Finish();
  } catch (const RunTimeError&) {
    // What Finish() would have told; the pass failed already or did not care.
  }
  if (!finished_) engine_->lock.LeaveBatch();
}

void WriteBatch::Finish() {
  if (finished_) return;
  if (engine_->IsOpen() && engine_->lock.IsOutermostBatch()) engine_->lock.CommitGroup();
  engine_->lock.LeaveBatch();
  finished_ = true;
}

}  // namespace kvi::jet
