#include "jet/sets/Dynaset.h"

#include <algorithm>

#include "base/RunTimeError.h"

namespace kvi::jet {
namespace {

constexpr std::size_t kFirstBlock = 4, kLastBlock = 1024, kGrowth = 4;
constexpr std::size_t kFastWalk = 256;
constexpr int kFewSearches = 4;
constexpr std::size_t kMostHeld = 100000;

}  // namespace

Dynaset::Dynaset(std::shared_ptr<Engine> engine, const Query& query)
    : RecordsetImpl(std::move(engine)),
      shape_(query.shape),
      generation_(TheEngine().watch.Generation()) {
  // A set that will be left early needs its keys only, where no other desk can come between them
  // and the rows.
  if (shape_->IsShallow() && TheEngine().connection.InTransaction())
    ReadKeys(query.translation.Parameters);
  else if (shape_->IsSmall())
    OpenSmall(query.translation.Parameters);
  else
    OpenLarge(query.translation.Parameters);
  shape_->Learn(keys_.Size());
  StandOnFirst();
}

Dynaset::~Dynaset() {
  shape_->LearnWalk(reached_, keys_.Size());
  try {
    TheEngine().lock.Part(*this);
    if (TheEngine().IsOpen()) Dynaset::CancelUpdate();
  } catch (const RunTimeError&) {
    // Nothing of the edit is written; the lock goes with the next transaction's end.
  }
}

void Dynaset::OpenSmall(const std::vector<Value>& parameters) {
  block_.Start(0, shape_->Columns());
  TheEngine().LookBeforeReading();
  StatementRun run(TheEngine().connection, shape_->Columns()->OpenSql);
  run.BindAll(parameters);
  while (run.Step()) {
    TakeKey(run);
    if (keys_.Size() <= QueryShape::kSmall) block_.Append(run, *shape_);
  }
  block_.Stamp = Now();
}

void Dynaset::OpenLarge(const std::vector<Value>& parameters) {
  const bool begun = TheEngine().lock.BeginRead();
  try {
    ReadKeys(parameters);
    if (keys_.Size() > 0) ReadBlockAround(0);
  } catch (...) {
    if (begun) TheEngine().lock.EndRead();
    throw;
  }
  if (begun) TheEngine().lock.EndRead();
}

void Dynaset::ReadKeys(const std::vector<Value>& parameters) {
  StatementRun run(TheEngine().connection, shape_->KeySql());
  run.BindAll(parameters);
  while (run.Step()) TakeKey(run);
}

void Dynaset::TakeKey(const StatementRun& run) {
  if (keys_.Size() == 0) {
    TheEngine().LookWhileReading();
    generation_ = TheEngine().watch.Generation();
  }
  keys_.Append(run.Whole(0));
}

void Dynaset::Leave() {
  CancelUpdate();
  cells_ = nullptr;
}

const Value& Dynaset::Field(std::string_view name) {
  const std::size_t field = shape_->Fields().Find(name);
  if (buffer_.Is() != EditBuffer::Kind::None && buffer_.Has(field)) return buffer_[field];
  if (!cells_) Land();
  shape_->Want(field);
  const int position = block_.PositionOf(field);
  return position == ColumnChoice::kNotFetched ? FetchAlso(field) : cells_[position];
}

void Dynaset::Land() {
  RequireCurrent();
  Engine& engine = TheEngine();
  engine.lock.Breathe();
  if (block_.End() - block_.Begin() < kFastWalk)
    engine.Look();
  else
    engine.Glance();
  outgrown_.clear();
  if (!block_.Covers(Position()) || block_.Stamp != Now()) ReadBlockAround(Position());
  RequireSameContent();
  if (block_.IsGone(Position())) throw RunTimeError(3167);
  cells_ = block_.Cells(Position());
  rowStamp_ = block_.Stamp;
  reached_ = std::max(reached_, Position() + 1);
}

// What stands under a key now is another row where the content was replaced.
void Dynaset::RequireSameContent() const {
  if (TheEngine().watch.Generation() != generation_) throw RunTimeError(3167);
}

// The same behind a statement, where another desk's replacing may have come before it.
void Dynaset::ConfirmContent() {
  if (TheEngine().connection.ReadsUnderLock()) return;
  TheEngine().Look();
  RequireSameContent();
}

void Dynaset::ReadBlockAround(std::size_t position) {
  searched_.reset();
  // A walk, in either direction, asks for ever larger blocks; a jump, or a file that others write
  // to, starts over.
  const std::size_t held = block_.End() - block_.Begin();
  const std::size_t grown = std::clamp(held * kGrowth, kFirstBlock, kLastBlock);
  const bool oneByOne = shape_->IsShallow() && position < kFirstBlock;
  std::size_t begin = position, count = oneByOne ? 1 : kFirstBlock;
  if (oneByOne) {
    // Rows that the set may not get to are not read.
  } else if (!block_.IsEmpty() && position >= block_.End() &&
             position - block_.End() < kFirstBlock) {
    count = grown;
  } else if (position < block_.Begin() && block_.Begin() - position <= kFirstBlock) {
    count = std::min(grown, position + 1);
    begin = position + 1 - count;
  }
  if (!block_.IsEmpty()) shape_->Settle();
  block_.Read(TheEngine(), *shape_, keys_, begin, std::min(count, keys_.Size() - begin));
}

const Value& Dynaset::FetchAlso(std::size_t field) {
  outgrown_.push_back(std::move(block_));
  searched_.reset();
  const RowBlock& before = outgrown_.back();
  block_ = RowBlock();
  block_.Read(TheEngine(), *shape_, keys_, before.Begin(), before.End() - before.Begin());
  RequireSameContent();
  if (block_.IsGone(Position())) throw RunTimeError(3167);
  cells_ = block_.Cells(Position());
  rowStamp_ = block_.Stamp;
  return cells_[block_.PositionOf(field)];
}

// The current row as it stands, under the lock that is held. A lock of rows is taken with it.
void Dynaset::LandAgain() {
  if (!cells_) Land();
  if (rowStamp_ == Now() && TheEngine().connection.IsAlone()) return;
  RequireSameContent();
  const bool stands = block_.ReadAgain(TheEngine(), *shape_, keys_, Position());
  ConfirmContent();
  if (!stands) throw RunTimeError(3167);
  rowStamp_ = Now();
}

void Dynaset::FindFirst(std::string_view criterion) {
  CancelUpdate();
  TheEngine().lock.Breathe();
  if (FindAmongRowsHeld(criterion)) return;
  const Condition condition = TranslateCondition(
      criterion, 1, {&Fields(), true, &shape_->Table().TrimmedKeys}, TheEngine().connection.Form());
  RowBlock found;
  TheEngine().LookBeforeReading();
  StatementRun run(TheEngine().connection, shape_->Columns()->FindSql + condition.Sql);
  run.BindAll(condition.Parameters);
  const std::size_t position = SearchRow(run, found);
  RequireSameContent();
  SetNoMatch(position == KeySet::kNone);
  if (NoMatch()) return;
  outgrown_.clear();
  searched_.reset();
  block_ = std::move(found);
  StandOn(position);
  cells_ = block_.Cells(position);
  rowStamp_ = block_.Stamp;
}

// Where a search is a trip, a set that is searched again and again for a text is read whole. False
// where the statement must tell.
bool Dynaset::FindAmongRowsHeld(std::string_view criterion) {
  if (!TheEngine().connection.IsDistant() || ++searches_ < kFewSearches || keys_.Size() > kMostHeld)
    return false;
  const auto search = FieldSearchOf(criterion);
  if (!search) return false;
  const std::size_t field = shape_->Fields().Find(search->Field);
  const FieldType type = shape_->Fields()[field].Type;
  if (type != FieldType::Text && type != FieldType::Memo) return false;
  TheEngine().Look();
  if (!searched_ || searched_->Field != field || block_.Stamp != Now() ||
      block_.End() != keys_.Size())
    HoldAll(field);
  RequireSameContent();
  const auto found = searched_->Positions.find(search->Text);
  if (found == searched_->Positions.end() || keys_.IsDeleted(found->second) ||
      block_.IsGone(found->second))
    return false;
  SetNoMatch(false);
  outgrown_.clear();
  StandOn(found->second);
  cells_ = block_.Cells(found->second);
  rowStamp_ = block_.Stamp;
  return true;
}

void Dynaset::HoldAll(std::size_t field) {
  shape_->Want(field);
  const bool isHeld = block_.Begin() == 0 && block_.End() == keys_.Size() &&
                      block_.Stamp == Now() &&
                      block_.PositionOf(field) != ColumnChoice::kNotFetched;
  if (!isHeld) block_.Read(TheEngine(), *shape_, keys_, 0, keys_.Size());
  cells_ = nullptr;
  searched_.emplace().Field = field;
  const auto column = static_cast<std::size_t>(block_.PositionOf(field));
  for (std::size_t position = 0; position < keys_.Size(); ++position) {
    if (keys_.IsDeleted(position) || block_.IsGone(position)) continue;
    const Value& value = block_.Cells(position)[column];
    if (!value.IsNull()) searched_->Positions.try_emplace(value.Text(), position);
  }
}

std::size_t Dynaset::SearchRow(StatementRun& run, RowBlock& found) {
  std::size_t first = KeySet::kNone;
  while (run.Step()) {
    if (first == KeySet::kNone) TheEngine().LookWhileReading();
    const std::size_t position = keys_.Find(run.Whole(0));
    if (position >= first) continue;  // (kNone is above all positions)
    first = position;
    found.Start(position, shape_->Columns());
    found.Append(run, *shape_);
  }
  found.Stamp = Now();
  return first;
}

}  // namespace kvi::jet
