#include "jet/sets/Snapshot.h"

#include <algorithm>

#include "base/Text.h"
#include "jet/engine/FieldRules.h"
#include "jet/engine/StatementRun.h"
#include "jet/sqlite/SqliteConnection.h"

namespace kvi::jet {
namespace {

constexpr std::size_t kMostIndexes = 8;

// The name under which a criterion can reach the column: of two alike the first has it, and a
// nameless expression has none.
std::string ColumnName(const FieldList& fields, std::size_t field) {
  const std::string& name = fields[field].Name;
  bool reachable = !name.empty() && name.find(']') == std::string::npos;
  for (std::size_t before = 0; reachable && before < field; ++before)
    reachable = !EqualsNoCase(fields[before].Name, name);
  return reachable ? Bracketed(name) : "[:" + std::to_string(field) + "]";
}

bool IsWanted(const std::string& name, const std::vector<std::string>& wanted) {
  return wanted.empty() || std::ranges::any_of(wanted, [&](const std::string& field) {
           return EqualsNoCase(field, name);
         });
}

// All fields of one table are narrowed to the wanted ones here: an engine sorts what it reads.
std::string Narrowed(const Query& query, const std::vector<std::string>& wanted) {
  const Translation& whole = query.translation;
  if (!query.shape || !whole.Columns.empty()) return whole.Sql;
  std::string columns;
  for (std::size_t field = 0; field < query.shape->Fields().Size(); ++field) {
    const std::string& name = query.shape->Fields()[field].Name;
    if (IsWanted(name, wanted)) columns += (columns.empty() ? "" : ",") + Bracketed(name);
  }
  if (columns.empty()) return whole.Sql;
  return "SELECT " + columns + " FROM " + Bracketed(whole.Table) +
         (whole.Where.empty() ? "" : " WHERE " + whole.Where) +
         (whole.OrderBy.empty() ? "" : " ORDER BY " + whole.OrderBy);
}

}  // namespace

// A database in memory with the snapshot's rows in one table, numbered from 1. Apart from the file,
// so that searching neither locks it nor sees anything but the rows held.
class Snapshot::Finder {
 public:
  Finder(const FieldList& fields, const std::vector<Value>& cells, std::size_t size)
      : memory_(":memory:") {
    std::string columns, marks, indexes;
    for (std::size_t field = 0; field < fields.Size(); ++field) {
      const std::string name = ColumnName(fields, field);
      columns += (field == 0 ? "" : ",") + name + " COLLATE JET1";
      marks += (field == 0 ? "?" : ",?") + std::to_string(field + 1);
      if (field < kMostIndexes)
        indexes += "CREATE INDEX i" + std::to_string(field) + " ON rows(" + name + ");";
    }
    memory_.Run("CREATE TABLE rows(" + columns + ");BEGIN");
    const std::string insert = "INSERT INTO rows VALUES(" + marks + ")";
    for (std::size_t row = 0; row < size; ++row) {
      StatementRun run(memory_, insert);
      for (std::size_t field = 0; field < fields.Size(); ++field)
        run.Bind(static_cast<int>(field) + 1, cells[row * fields.Size() + field]);
      run.Step();
    }
    memory_.Run("COMMIT;" + indexes);
  }

  // The first row's position; false when none meets the condition.
  bool Find(const Condition& condition, std::size_t& position) {
    StatementRun run(memory_, "SELECT min(rowid) FROM rows WHERE " + condition.Sql);
    run.BindAll(condition.Parameters);
    if (!run.Step() || run.IsNull(0)) return false;
    position = static_cast<std::size_t>(run.Whole(0)) - 1;
    return true;
  }

 private:
  SqliteConnection memory_;
};

Snapshot::Snapshot(std::shared_ptr<Engine> engine, const Query& query,
                   const std::vector<std::string>& wanted)
    : RecordsetImpl(std::move(engine)), fields_(std::vector<FieldDef>()) {
  StatementRun run(TheEngine().connection, Narrowed(query, wanted));
  run.BindAll(query.translation.Parameters);
  std::vector<FieldDef> all;
  for (int column = 0; column < run.Columns(); ++column)
    all.push_back(FieldOfColumn(run.Name(column), run.DeclaredType(column)));
  for (const int place : query.translation.DatePlaces)
    all[static_cast<std::size_t>(place)].Type = FieldType::Date;
  std::vector<FieldDef> fields;
  std::vector<int> columns;
  std::vector<char> isPlain;
  for (int column = 0; column < run.Columns(); ++column) {
    const FieldDef& field = all[static_cast<std::size_t>(column)];
    if (!IsWanted(field.Name, wanted)) continue;
    fields.push_back(field);
    columns.push_back(column);
    isPlain.push_back(run.DeclaredType(column).empty() && field.Type != FieldType::Date);
  }
  while (run.Step()) {
    for (std::size_t at = 0; at < fields.size(); ++at)
      cells_.push_back(isPlain[at] ? run.Plain(columns[at])
                                   : run.Field(columns[at], fields[at].Type));
    ++size_;
  }
  fields_ = FieldList(std::move(fields));
  StandOnFirst();
}

Snapshot::~Snapshot() = default;

const Value& Snapshot::Field(std::string_view name) {
  const std::size_t field = fields_.Find(name);
  RequireCurrent();
  return cells_[Position() * fields_.Size() + field];
}

void Snapshot::FindFirst(std::string_view criterion) {
  const Condition condition = TranslateCondition(criterion, 1, {&Fields()});
  if (!finder_) finder_ = std::make_unique<Finder>(fields_, cells_, size_);
  std::size_t position = 0;
  SetNoMatch(!finder_->Find(condition, position));
  if (!NoMatch()) StandOn(position);
}

}  // namespace kvi::jet
