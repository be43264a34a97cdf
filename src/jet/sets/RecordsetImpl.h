#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "base/Value.h"
#include "jet/TableDef.h"
#include "jet/engine/Engine.h"

namespace kvi::jet {

// What stands behind a Recordset: the rules of its current row, over rows that a dynaset or a
// snapshot keeps. A deleted row keeps its position, so that the current row can stand on it.
class RecordsetImpl {
 public:
  virtual ~RecordsetImpl() = default;
  RecordsetImpl(const RecordsetImpl&) = delete;
  RecordsetImpl& operator=(const RecordsetImpl&) = delete;

  bool Eof() const { return standing_ == Standing::After || IsWithoutRows(); }
  bool Bof() const { return standing_ == Standing::Before || IsWithoutRows(); }
  bool NoMatch() const { return noMatch_; }
  void MoveFirst();
  void MoveLast();
  void MoveNext();
  void MovePrevious();

  virtual int RecordCount() const = 0;
  virtual const std::vector<FieldDef>& Fields() const = 0;
  virtual const Value& Field(std::string_view name) = 0;
  virtual void FindFirst(std::string_view criterion) = 0;

  // A set that cannot be written raises 3027.
  virtual void AddNew();
  virtual void Edit();
  virtual void Set(std::string_view field, const Value& value);
  virtual void Update();
  virtual void CancelUpdate();
  virtual void Delete();

  bool IsOpen() const { return engine_->IsOpen(); }
  void RequireOpen() const { engine_->RequireOpen(); }

 protected:
  explicit RecordsetImpl(std::shared_ptr<Engine> engine) : engine_(std::move(engine)) {}

  // How many positions there are, and which are empty by a deletion.
  virtual std::size_t Size() const = 0;
  virtual bool IsDeleted(std::size_t) const { return false; }
  // The current row is about to change: an edit buffer is lost.
  virtual void Leave() {}

  void StandOnFirst();
  void StandOn(std::size_t position);
  void StandBehindAll() { Forward(Size()); }
  std::size_t Position() const { return position_; }
  // 3021 without a current row, 3167 on a deleted one.
  void RequireCurrent() const;
  void SetNoMatch(bool noMatch) { noMatch_ = noMatch; }
  Engine& TheEngine() const { return *engine_; }

 private:
  enum class Standing { Before, On, After };

  bool IsWithoutRows() const { return RecordCount() == 0 && standing_ != Standing::On; }
  void Forward(std::size_t position);
  void Backward(std::size_t end);

  std::shared_ptr<Engine> engine_;
  Standing standing_ = Standing::After;
  std::size_t position_ = 0;
  bool noMatch_ = false;
};

}  // namespace kvi::jet
