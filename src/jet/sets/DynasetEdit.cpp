// The writing half of a dynaset.
#include <algorithm>
#include <utility>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "jet/engine/FieldRules.h"
#include "jet/sets/Dynaset.h"

namespace kvi::jet {

using Kind = EditBuffer::Kind;

void Dynaset::AddNew() {
  CancelUpdate();
  if (TheEngine().connection.IsReadOnly()) throw RunTimeError(3027);
  buffer_.Open(Kind::New, shape_->Fields());
}

void Dynaset::Edit() {
  CancelUpdate();
  RequireCurrent();
  const bool wasRead = cells_ != nullptr;
  const std::int64_t versionRead = wasRead ? block_.Version(Position()) : 0;
  WriteLock& lock = TheEngine().lock;
  lock.Begin(LockScope::Row);
  // (Counted before the row is read, so that no group of a batch ends in between.)
  buffer_.Ticket = lock.OpenEdit();
  try {
    LandAgain();
  } catch (...) {
    lock.CloseEdit(buffer_.Ticket);
    lock.Abandon();
    throw;
  }
  buffer_.Open(Kind::Edit, shape_->Fields());
  buffer_.Version = block_.Version(Position());
  buffer_.Line = TheEngine().connection.LineNumber();
  // The edit is open: whoever passes over the error goes on, on the fresh row.
  const bool writesOver = TheEngine().connection.OnLocked != nullptr;
  if (wasRead && !writesOver && block_.Version(Position()) != versionRead) throw RunTimeError(3197);
}

void Dynaset::Set(std::string_view field, const Value& value) {
  if (buffer_.Is() == Kind::None) throw RunTimeError(3020);
  buffer_.Set(shape_->Fields(), shape_->Fields().Find(field), value);
}

void Dynaset::CancelUpdate() {
  if (buffer_.Is() == Kind::None) return;
  const bool edit = buffer_.Is() == Kind::Edit;
  buffer_.Close();
  WriteLock& lock = TheEngine().lock;
  if (!edit || !lock.IsHeldFor(buffer_.Ticket)) return;
  lock.CloseEdit(buffer_.Ticket);
  lock.Abandon();
}

void Dynaset::Update() {
  if (buffer_.Is() == Kind::None) throw RunTimeError(3020);
  Connection& connection = TheEngine().connection;
  if (buffer_.Unsure != 0) {
    // (Where that cannot be told yet either, it is asked again the next time.)
    const bool isWritten = connection.WasCommitted(buffer_.Unsure);
    buffer_.Unsure = 0;
    if (isWritten) return TakeWritten();
  }
  try {
    if (buffer_.Is() == Kind::New)
      WriteNew();
    else
      WriteEdit();
  } catch (const RunTimeError&) {
    buffer_.Unsure = connection.UnsureCommit();
    throw;
  }
}

// What was asked to be written is in the database already.
void Dynaset::TakeWritten() {
  if (buffer_.Is() == Kind::New) keys_.Append(buffer_.NewKey);
  buffer_.Close();
  block_ = RowBlock();
  searched_.reset();
  cells_ = nullptr;
}

// Where the lock was given back since Edit, it is taken again, and the last writer wins: the fields
// that were set are written over whatever another desk wrote meanwhile, the others are left alone.
void Dynaset::WriteEdit() {
  const bool written = WriteRow([&] {
    WriteLock& lock = TheEngine().lock;
    const bool isHeld = lock.IsHeldFor(buffer_.Ticket) && cells_ && rowStamp_ == Now();
    lock.CloseEdit(buffer_.Ticket);
    if (!isHeld) LandAgain();
    RequireUnmoved();
    return UpdateRow();
  });
  rowStamp_ = Now();
  if (written) block_.SetVersion(Position(), block_.Version(Position()) + 1);
  for (const std::size_t field : differing_) {
    if (searched_ && searched_->Field == field) searched_.reset();
    if (const int at = block_.PositionOf(field); at != ColumnChoice::kNotFetched)
      cells_[at] = buffer_[field];
  }
  buffer_.Close();
}

// An edit whose line broke held nothing since: then another desk's change is told as at Edit.
void Dynaset::RequireUnmoved() {
  const Connection& connection = TheEngine().connection;
  if (connection.LineNumber() == buffer_.Line || connection.OnLocked) return;
  buffer_.Line = connection.LineNumber();
  if (block_.Version(Position()) != std::exchange(buffer_.Version, block_.Version(Position())))
    throw RunTimeError(3197);
}

// False when `write` found nothing to write. The block is as the file has it, but for the row
// written, if it was so before.
template <typename Write>
bool Dynaset::WriteRow(Write write) {
  bool written = false, blockWasFresh = false;
  TheEngine().lock.Run(LockScope::Row, [&] {
    written = write();
    blockWasFresh = block_.Stamp == Now();
    if (!written || joined_) return;
    joined_ = true;
    sizeBefore_ = keys_.Size();
    TheEngine().lock.Join(*this);
  });
  if (!written) return false;
  ++*shape_->Table().Writes;
  if (blockWasFresh) block_.Stamp = Now();
  return true;
}

void Dynaset::Committed() {
  joined_ = false;
  deletedSince_.clear();
}

// Keys and versions in memory are those of rows that were never written.
void Dynaset::TakenBack() {
  keys_.Truncate(sizeBefore_);
  for (const std::size_t position : deletedSince_)
    if (position < sizeBefore_) keys_.Restore(position);
  Committed();
  if (Position() >= keys_.Size()) StandBehindAll();
  block_ = RowBlock();
  searched_.reset();
  cells_ = nullptr;
}

// Only what differs from the row as it stands is written, as an index costs pages even where its
// field gets the value that it has. False when nothing differs.
bool Dynaset::UpdateRow() {
  differing_.clear();
  for (const std::size_t field : buffer_.Changed()) {
    const int at = block_.PositionOf(field);
    if (at == ColumnChoice::kNotFetched || !(cells_[at] == buffer_[field]))
      differing_.push_back(field);
  }
  if (differing_.empty()) return false;
  StatementRun run(TheEngine().connection, UpdateSql());
  run.Bind(1, keys_[Position()]);
  int parameter = 1;
  for (const std::size_t field : differing_) run.Bind(++parameter, buffer_[field]);
  if (shape_->Table().Versioned) run.Bind(++parameter, block_.Version(Position()) + 1);
  run.Write(MayCollide(differing_));
  return true;
}

bool Dynaset::MayCollide(const std::vector<std::size_t>& fields) const {
  return std::ranges::any_of(shape_->Table().UniqueFields, [&](const std::string& unique) {
    return std::ranges::any_of(fields, [&](std::size_t field) {
      return EqualsNoCase(shape_->Fields()[field].Name, unique);
    });
  });
}

const std::string& Dynaset::UpdateSql() {
  if (!updateSql_.empty() && updateFields_ == differing_) return updateSql_;
  const StoredTable& table = shape_->Table();
  updateFields_ = differing_;
  updateSql_ = "UPDATE " + Bracketed(table.Name) + " SET ";
  int parameter = 1;
  const auto assign = [&](std::string_view column) {
    if (parameter > 1) updateSql_ += ",";
    updateSql_ += Bracketed(column) + "=?" + std::to_string(++parameter);
  };
  for (const std::size_t field : updateFields_) assign(shape_->Fields()[field].Name);
  if (table.Versioned) assign("_ver");
  return updateSql_ += " WHERE " + Bracketed(table.Key) + "=?1";
}

void Dynaset::WriteNew() {
  WriteRow([&] {
    buffer_.NewKey = InsertRow();
    return true;
  });
  keys_.Append(buffer_.NewKey);
  buffer_.Close();
}

std::int64_t Dynaset::InsertRow() {
  Connection& connection = TheEngine().connection;
  const StoredTable& table = shape_->Table();
  const std::int64_t key = connection.NextKey(table);
  std::string names, marks;
  int parameters = 0;
  const auto add = [&](std::string_view column) {
    names += (parameters == 0 ? "" : ",") + Bracketed(column);
    marks += (parameters == 0 ? "?" : ",?") + std::to_string(parameters + 1);
    ++parameters;
  };
  if (key != 0) add(table.Key);
  for (const std::size_t field : buffer_.Changed()) add(shape_->Fields()[field].Name);
  const std::string into = "INSERT INTO " + Bracketed(table.Name);
  StatementRun run(connection, parameters == 0 ? into + " DEFAULT VALUES"
                                               : into + "(" + names + ") VALUES(" + marks + ")");
  int parameter = 0;
  if (key != 0) run.Bind(++parameter, key);
  for (const std::size_t field : buffer_.Changed()) run.Bind(++parameter, buffer_[field]);
  run.Write(!table.UniqueFields.empty());
  return key != 0 ? key : connection.LastKey();
}

void Dynaset::Delete() {
  CancelUpdate();
  RequireCurrent();
  WriteRow([&] {
    DeleteRow();
    return true;
  });
  keys_.Delete(Position());
  if (joined_) deletedSince_.push_back(Position());
  cells_ = nullptr;
}

void Dynaset::DeleteRow() {
  RequireSameContent();
  const StoredTable& table = shape_->Table();
  StatementRun run(TheEngine().connection, "DELETE FROM " + Bracketed(table.Name) + " WHERE " +
                                               Bracketed(table.Key) + "=?1");
  run.Bind(1, keys_[Position()]);
  run.Step();
  ConfirmContent();
  if (TheEngine().connection.RowsWritten() == 0) throw RunTimeError(3167);
}

}  // namespace kvi::jet
