#pragma once

#include <functional>

#include "jet/Database.h"
#include "platform/Progress.h"

namespace kvi {

// Walks over many rows that write them, beside desks that do the same. A row is taken under the
// file's lock first and read then, so what is decided on is what is written over. Two desks that
// run one walk together pass each other: data that changed since a row was seen (3197) is no
// failure, since the row is read afresh, and a row that is gone meanwhile (3167) is passed over.
// Every other failure leaves, 3260 too; what was written before it stays.

// What becomes of the row under the lock: the fields that were set are written, or nothing is, and
// no other desk sees a change.
enum class RowEnd { Write, Leave };

using RowChange = std::function<RowEnd(jet::Recordset& row)>;
using RowTest = std::function<bool(const jet::Recordset& row)>;

// Hands the current row to `change`. A row that `wanted` does not take as it was read is left
// without any lock; `change` decides anew.
void ChangeRow(jet::Recordset& rows, const RowChange& change, const RowTest& wanted = {});

// The same from the current row to the last, committed in the groups of a WriteBatch. The progress
// is told of each row.
void WalkAndChange(jet::Database& database, jet::Recordset& rows, const RowChange& change,
                   const RowTest& wanted = {}, Progress* progress = nullptr);

}  // namespace kvi
