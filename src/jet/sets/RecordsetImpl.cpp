#include "jet/sets/RecordsetImpl.h"

#include "base/RunTimeError.h"

namespace kvi::jet {

void RecordsetImpl::MoveFirst() {
  if (RecordCount() == 0) throw RunTimeError(3021);
  Leave();
  Forward(0);
}

void RecordsetImpl::MoveLast() {
  if (RecordCount() == 0) throw RunTimeError(3021);
  Leave();
  Backward(Size());
}

void RecordsetImpl::MoveNext() {
  if (Eof()) throw RunTimeError(3021);
  Leave();
  Forward(standing_ == Standing::Before ? 0 : position_ + 1);
}

void RecordsetImpl::MovePrevious() {
  if (Bof()) throw RunTimeError(3021);
  Leave();
  Backward(standing_ == Standing::After ? Size() : position_);
}

void RecordsetImpl::Forward(std::size_t position) {
  while (position < Size() && IsDeleted(position)) ++position;
  position_ = position;
  standing_ = position < Size() ? Standing::On : Standing::After;
}

void RecordsetImpl::Backward(std::size_t end) {
  while (end > 0 && IsDeleted(end - 1)) --end;
  standing_ = end > 0 ? Standing::On : Standing::Before;
  position_ = end > 0 ? end - 1 : 0;
}

void RecordsetImpl::StandOnFirst() {
  Forward(0);
}

void RecordsetImpl::StandOn(std::size_t position) {
  position_ = position;
  standing_ = Standing::On;
}

void RecordsetImpl::RequireCurrent() const {
  if (standing_ != Standing::On) throw RunTimeError(3021);
  if (IsDeleted(position_)) throw RunTimeError(3167);
}

void RecordsetImpl::AddNew() {
  throw RunTimeError(3027);
}
void RecordsetImpl::Edit() {
  throw RunTimeError(3027);
}
void RecordsetImpl::Set(std::string_view, const Value&) {
  throw RunTimeError(3020);
}
void RecordsetImpl::Update() {
  throw RunTimeError(3020);
}
void RecordsetImpl::CancelUpdate() {}
void RecordsetImpl::Delete() {
  throw RunTimeError(3027);
}

}  // namespace kvi::jet
