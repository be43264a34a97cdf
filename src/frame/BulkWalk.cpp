#include "frame/BulkWalk.h"

#include "base/RunTimeError.h"

namespace kvi {

namespace {

constexpr int kRowIsGone = 3167, kDataChanged = 3197;

// Whether the row is open for change; false for one that is gone or not wanted.
bool Open(jet::Recordset& rows, const RowTest& wanted) {
  try {
    if (wanted && !wanted(rows)) return false;
    rows.Edit();
  } catch (const RunTimeError& error) {
    if (error.Number == kRowIsGone) return false;
    if (error.Number != kDataChanged) throw;
  }
  return true;
}

}  // namespace

void ChangeRow(jet::Recordset& rows, const RowChange& change, const RowTest& wanted) {
  if (!Open(rows, wanted)) return;
  try {
    if (change(rows) == RowEnd::Write)
      rows.Update();
    else
      rows.CancelUpdate();
  } catch (...) {
    // A set that lives on keeps neither the edit nor its lock.
    rows.CancelUpdate();
    throw;
  }
}

void WalkAndChange(jet::Database& database, jet::Recordset& rows, const RowChange& change,
                   const RowTest& wanted, Progress* progress) {
  jet::WriteBatch batch(database);
  for (int done = 1; !rows.Eof(); rows.MoveNext(), ++done) {
    ChangeRow(rows, change, wanted);
    if (progress != nullptr) progress->Done(done);
  }
  batch.Finish();
}

}  // namespace kvi
