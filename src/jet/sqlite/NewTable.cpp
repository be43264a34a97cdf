#include "jet/sqlite/NewTable.h"

#include <algorithm>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "jet/engine/FieldRules.h"
#include "jet/sqlite/SqliteTables.h"

namespace kvi::jet {
namespace {

constexpr int kTooSmall = 3163, kWrongType = 3421;
constexpr int kMostLines = 5;

template <class List, class Names>
bool Contains(const List& list, const std::string& name, Names names) {
  return std::ranges::any_of(list,
                             [&](const auto& entry) { return EqualsNoCase(names(entry), name); });
}

// Whether ours are the fields that the other index names in brackets.
bool AreSameFields(const IndexDef& ours, const IndexDef& bracketed) {
  return std::ranges::equal(ours.Columns, bracketed.Columns,
                            [](const std::string& left, const std::string& right) {
                              return EqualsNoCase("[" + left + "]", right);
                            });
}

TableDef Joined(const TableDef& old, const TableDef* ours) {
  TableDef joined{old.Name, old.Fields, {}};
  if (ours != nullptr) {
    for (const FieldDef& field : ours->Fields)
      if (!Contains(old.Fields, field.Name, [](const FieldDef& there) { return there.Name; }))
        joined.Fields.push_back(field);
    joined.Indexes = ours->Indexes;
  }
  for (const IndexDef& index : old.Indexes)
    if (std::ranges::none_of(joined.Indexes, [&](const IndexDef& there) {
          return AreSameFields(there, index) && there.Unique;
        }))
      joined.Indexes.push_back(index);
  return joined;
}

std::string Columns(const IndexDef& index, const char* between) {
  std::string text;
  for (const std::string& column : index.Columns) text += (text.empty() ? "" : between) + column;
  return text;
}

}  // namespace

NewTable::NewTable(SqliteConnection& connection, const TableDef& old, const TableDef* ours)
    : connection_(connection), design_(Joined(old, ours)), fields_(old.Fields.size()) {
  CreateTable(connection, {design_.Name, design_.Fields, {}});
  std::string names, values;
  for (const FieldDef& field : old.Fields) {
    names += (names.empty() ? "" : ",") + Bracketed(field.Name);
    values += values.empty() ? "?" : ",?";
  }
  insert_ = "INSERT INTO " + Bracketed(design_.Name) +
            (names.empty() ? " DEFAULT VALUES" : "(" + names + ") VALUES(" + values + ")");
}

bool NewTable::Add(const std::vector<Value>& row, int number) {
  try {
    for (std::size_t i = 0; i < row.size(); ++i) fields_[i] = ToField(design_.Fields[i], row[i]);
    StatementRun run(connection_, insert_);
    run.BindAll(fields_);
    run.Step();
    return true;
  } catch (const RunTimeError& error) {
    if (error.Number != kTooSmall && error.Number != kWrongType) throw;
    if (++refusedRows_ <= kMostLines)
      refused_.push_back("row " + std::to_string(number) + ": " + error.Description);
    return false;
  }
}

void NewTable::Finish(int rows) {
  for (const IndexDef& index : design_.Indexes) MakeIndex(index);
  StatementRun count(connection_, "SELECT count(*) FROM " + Bracketed(design_.Name));
  count.Step();
  if (count.Whole(0) != rows)
    throw RunTimeError(3049, "Table " + design_.Name + " has " + count.Text(0).data() + " of " +
                                 std::to_string(rows) + " rows in the new file.");
}

// What came from elsewhere keeps its rows, also those that share a key. (They are looked for first:
// without a journal a statement that failed could not be taken back.)
void NewTable::MakeIndex(IndexDef index) {
  if (index.Unique) {
    if (const std::string shared = SharedKeys(index); !shared.empty()) {
      notes_.push_back("rows share one key (" + Columns(index, ",") + "): " + shared +
                       "; its index is not unique");
      index.Unique = false;
    }
  }
  CreateIndex(connection_, design_.Name, index, ++indexes_);
}

// The first keys that more than one row has; Null is no key.
std::string NewTable::SharedKeys(const IndexDef& index) {
  const std::string columns = Columns(index, ",");
  StatementRun run(connection_, "SELECT " + columns + " FROM " + Bracketed(design_.Name) +
                                    " WHERE " + Columns(index, " NOT NULL AND ") +
                                    " NOT NULL GROUP BY " + columns + " HAVING count(*)>1");
  std::string text;
  int keys = 0;
  for (; run.Step(); ++keys) {
    if (keys >= kMostLines) continue;
    text += keys == 0 ? "" : ", ";
    for (int column = 0; column < run.Columns(); ++column)
      text += (column == 0 ? "" : " ") + std::string(run.Text(column));
  }
  return keys > kMostLines ? text + " and " + std::to_string(keys - kMostLines) + " more" : text;
}

std::vector<std::string> NewTable::Refused() const {
  std::vector<std::string> lines = refused_;
  if (refusedRows_ > kMostLines)
    lines.push_back("and " + std::to_string(refusedRows_ - kMostLines) + " more rows");
  return lines;
}

}  // namespace kvi::jet
