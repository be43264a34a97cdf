#include "jet/Recordset.h"

#include "base/RunTimeError.h"
#include "jet/sets/RecordsetImpl.h"

namespace kvi::jet {

Recordset::Recordset() = default;
Recordset::Recordset(std::unique_ptr<RecordsetImpl> impl) : impl_(std::move(impl)) {}
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;

RecordsetImpl& Recordset::Impl() const {
  if (!impl_) throw RunTimeError(3420);
  impl_->RequireOpen();
  return *impl_;
}

bool Recordset::IsOpen() const {
  return impl_ && impl_->IsOpen();
}
void Recordset::Close() {
  impl_.reset();
}

bool Recordset::Eof() const {
  return Impl().Eof();
}
bool Recordset::Bof() const {
  return Impl().Bof();
}
int Recordset::RecordCount() const {
  return Impl().RecordCount();
}

void Recordset::MoveFirst() {
  Impl().MoveFirst();
}
void Recordset::MoveLast() {
  Impl().MoveLast();
}
void Recordset::MoveNext() {
  Impl().MoveNext();
}
void Recordset::MovePrevious() {
  Impl().MovePrevious();
}

void Recordset::FindFirst(std::string_view criterion) {
  Impl().FindFirst(criterion);
}
bool Recordset::NoMatch() const {
  return Impl().NoMatch();
}

const Value& Recordset::operator[](std::string_view field) const {
  return Impl().Field(field);
}

void Recordset::AddNew() {
  Impl().AddNew();
}
void Recordset::Edit() {
  Impl().Edit();
}
void Recordset::Set(std::string_view field, const Value& value) {
  Impl().Set(field, value);
}
void Recordset::Update() {
  Impl().Update();
}
void Recordset::CancelUpdate() {
  Impl().CancelUpdate();
}
void Recordset::Delete() {
  Impl().Delete();
}

const std::vector<FieldDef>& Recordset::Fields() const {
  return Impl().Fields();
}

}  // namespace kvi::jet
