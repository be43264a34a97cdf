#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "jet/dialect/JetSql.h"
#include "jet/engine/TableCatalog.h"
#include "jet/sets/FieldList.h"

namespace kvi::jet {

// Which columns of a table are fetched, where each stands, and the statements that fetch them.
// Column 0 of each statement is the row's key, column 1 its version.
struct ColumnChoice {
  static constexpr int kNotFetched = -1;

  std::vector<std::size_t> Fields;  // in the order in which they are fetched
  std::vector<int> PositionOf;      // by field
  std::string OpenSql;              // the whole set, in its order
  std::string ListSql;              // the rows of a list of keys, in the list's order
  std::string RangeSql;             // the rows from one key to another, in the keys' order
  std::string RowSql;               // the row of one key, to be changed
  std::string FindSql;              // ends in WHERE: a condition comes behind it
};

// What all dynasets of one statement have in common, whatever the literals in it: the table, the
// fields, and what earlier ones taught: which columns are read, how many rows there are, and how
// far they are walked.
class QueryShape {
 public:
  QueryShape(const Connection& connection, std::shared_ptr<StoredTable> table,
             const Translation& translation);

  const StoredTable& Table() const { return *table_; }
  const FieldList& Fields() const { return fields_; }
  const std::string& KeySql() const { return keySql_; }

  // A small set comes with its rows at once; of a large one the keys are read first.
  bool IsSmall() const { return lastCount_ <= kSmall; }
  void Learn(std::size_t count) { lastCount_ = count; }
  // The last set was left in its first half, or not walked at all: most of its rows were not read.
  bool IsShallow() const { return shallow_; }
  void LearnWalk(std::size_t reached, std::size_t count) {
    if (count > 0) shallow_ = reached * 2 < count;
  }
  static constexpr std::size_t kSmall = 64;

  // The field was read. Columns that nobody reads are not fetched.
  void Want(std::size_t field) {
    if (!wanted_[field]) WantAlso(field);
  }
  // A block was passed, so what was not read by now mostly is not read at all.
  void Settle() {
    if (!settled_) WantNothing();
  }
  // All columns at first.
  const std::shared_ptr<const ColumnChoice>& Columns();

 private:
  void WantAlso(std::size_t field);
  void WantNothing();
  ColumnChoice Choose() const;

  const Connection& connection_;
  std::shared_ptr<StoredTable> table_;
  FieldList fields_;
  std::string condition_, order_, keySql_;
  std::vector<char> wanted_;
  bool settled_ = false;
  bool shallow_ = false;
  std::shared_ptr<const ColumnChoice> columns_;
  std::size_t lastCount_ = static_cast<std::size_t>(-1);
};

}  // namespace kvi::jet
