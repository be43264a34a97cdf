#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Value.h"
#include "jet/TableDef.h"

namespace kvi::jet {

// Whose SQL is written.
enum class SqlForm { Sqlite, Postgres };

// A Jet statement rewritten for an engine. `Sql` is the statement's shape: every literal stands as
// a numbered parameter (?1, ?2 ...) and in `Parameters`, so that prepared statements can be cached
// by shape. Names stand in brackets, which SQLite never takes for a text. An UPDATE raises `_ver`
// in each row as well.
struct Translation {
  enum class Kind { Select, Action };

  Kind kind = Kind::Select;
  std::string Sql;
  std::vector<Value> Parameters;

  // Expressions of the outermost list that give a date, by their place from 0 on. (In the file a
  // date is a text like any other.)
  std::vector<int> DatePlaces;

  // For a Select that reads one table without grouping, DISTINCT, join or set operation: the pieces
  // from which a keyed dynaset is built, as SQLite text over the same parameters. `Table` is empty
  // for every other query (a snapshot).
  std::string Table;                 // bare table name
  std::string Where;                 // without the word, may be empty
  std::string OrderBy;               // without the words, may be empty
  std::vector<std::string> Columns;  // bare column names asked for, empty for `*`
};

// What the dialect asks of the schema. Known fields let `*` stand for them alone (never for the
// hidden columns) and let a text field that is compared with a number be read through Val, as Jet
// coerces it; number fields stay bare, for their index.
struct TableShape {
  const std::vector<FieldDef>* Fields = nullptr;  // null for an unknown table
  bool Versioned = true;                          // has the column `_ver`
  // Of a server's table, the fields with a key of their text without blanks.
  const std::vector<std::string>* TrimmedKeys = nullptr;
};
using ShapeOfTable = std::function<TableShape(std::string_view table)>;

// Translates one statement. Raises 3075 for text that is no single statement (an open quote,
// anything behind the closing semicolon, a comment), 3085 for an unknown function, 3129 for a
// statement of an unknown kind. Only SELECT, INSERT, UPDATE and DELETE pass.
Translation Translate(std::string_view jetSql, const ShapeOfTable& shapeOf = {},
                      SqlForm form = SqlForm::Sqlite);

// Translates a search criterion, as FindFirst takes it, to the text of a condition over its own
// parameters, numbered from `firstParameter` on. `searched` are the fields of the set.
struct Condition {
  std::string Sql;
  std::vector<Value> Parameters;
};
Condition TranslateCondition(std::string_view criterion, int firstParameter,
                             const TableShape& searched = {}, SqlForm form = SqlForm::Sqlite);

}  // namespace kvi::jet
