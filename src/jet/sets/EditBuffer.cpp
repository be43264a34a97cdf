#include "jet/sets/EditBuffer.h"

#include "jet/engine/FieldRules.h"

namespace kvi::jet {

void EditBuffer::Open(Kind kind, const FieldList& fields) {
  kind_ = kind;
  Unsure = 0;
  isSet_.assign(fields.Size(), 0);
  changed_.clear();
  values_.resize(fields.Size());
  if (kind != Kind::New) return;
  for (std::size_t field = 0; field < fields.Size(); ++field)
    if (const Value& initial = fields[field].Default; initial.IsNull())
      values_[field] = ToField(fields[field], {});
    else
      Set(fields, field, initial);
}

void EditBuffer::Set(const FieldList& fields, std::size_t field, const Value& value) {
  values_[field] = ToField(fields[field], value);
  if (isSet_[field]) return;
  isSet_[field] = 1;
  changed_.push_back(field);
}

}  // namespace kvi::jet
