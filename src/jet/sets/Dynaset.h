#pragma once

#include <optional>
#include <string>
#include <vector>

#include "jet/sets/EditBuffer.h"
#include "jet/sets/KeySet.h"
#include "jet/sets/QueryCache.h"
#include "jet/sets/RecordsetImpl.h"
#include "jet/sets/RowBlock.h"
#include "jet/sets/SearchedField.h"

namespace kvi::jet {

// An updatable set over one table. The keys are read at open and fix which rows there are and in
// which order; the rows themselves come in blocks when the set gets to them, and a block is dropped
// once the file changed under it. So a row is seen as it stands when it becomes the current one.
class Dynaset : public RecordsetImpl, private WriteLock::Writer {
 public:
  Dynaset(std::shared_ptr<Engine> engine, const Query& query);
  ~Dynaset() override;

  int RecordCount() const override { return static_cast<int>(keys_.Live()); }
  const std::vector<FieldDef>& Fields() const override { return shape_->Fields().All(); }
  const Value& Field(std::string_view name) override;
  // The first row in the set's order that is in the set and meets the criterion as it stands now.
  void FindFirst(std::string_view criterion) override;

  void AddNew() override;
  void Edit() override;
  void Set(std::string_view field, const Value& value) override;
  void Update() override;
  void CancelUpdate() override;
  void Delete() override;

 protected:
  std::size_t Size() const override { return keys_.Size(); }
  bool IsDeleted(std::size_t position) const override { return keys_.IsDeleted(position); }
  void Leave() override;

 private:
  void OpenSmall(const std::vector<Value>& parameters);
  void OpenLarge(const std::vector<Value>& parameters);
  void ReadKeys(const std::vector<Value>& parameters);
  void TakeKey(const StatementRun& run);
  bool FindAmongRowsHeld(std::string_view criterion);
  void HoldAll(std::size_t field);
  std::size_t SearchRow(StatementRun& run, RowBlock& found);

  // The current row is in memory, and as the file has it. 3021 and 3167 where there is none.
  void Land();
  void LandAgain();
  void ReadBlockAround(std::size_t position);
  const Value& FetchAlso(std::size_t field);
  Engine::Stamp Now() const { return TheEngine().Now(shape_->Table()); }
  // The keys are those of the content that stands in the file; else 3167.
  void RequireSameContent() const;
  void ConfirmContent();

  template <typename Write>
  bool WriteRow(Write write);
  void Committed() override;
  void TakenBack() override;
  void WriteEdit();
  void TakeWritten();
  void RequireUnmoved();
  void WriteNew();
  bool UpdateRow();
  std::int64_t InsertRow();
  void DeleteRow();
  // Whether a unique index is over one of these.
  bool MayCollide(const std::vector<std::size_t>& fields) const;
  const std::string& UpdateSql();

  std::shared_ptr<QueryShape> shape_;
  std::uint32_t generation_;  // of the content that the keys were read from
  KeySet keys_;
  RowBlock block_;
  // What the open transaction did to the keys.
  bool joined_ = false;
  std::size_t sizeBefore_ = 0;
  std::vector<std::size_t> deletedSince_;
  std::size_t reached_ = 0;  // rows from the first one to the furthest landed on
  Value* cells_ = nullptr;   // the current row once it was landed on
  int searches_ = 0;
  std::optional<SearchedField> searched_;  // of a block that holds the whole set
  Engine::Stamp rowStamp_;                 // as of when the current row is
  std::vector<RowBlock> outgrown_;  // values of the current row that callers may still look at
  EditBuffer buffer_;
  std::vector<std::size_t> differing_;  // of the fields set, those with another value than the row
  std::vector<std::size_t> updateFields_;
  std::string updateSql_;
};

}  // namespace kvi::jet
