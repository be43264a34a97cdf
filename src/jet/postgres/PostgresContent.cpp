// The whole content, out of the server into a file and out of a file into the server.
#include <array>
#include <charconv>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "base/RunTimeError.h"
#include "base/TakeName.h"
#include "base/Text.h"
#include "base/Value.h"
#include "jet/engine/FieldRules.h"
#include "jet/engine/StatementRun.h"
#include "jet/postgres/PostgresConnection.h"
#include "jet/postgres/PostgresError.h"
#include "jet/postgres/PostgresIndexes.h"
#include "jet/postgres/ServerTables.h"
#include "jet/sqlite/SqliteConnection.h"
#include "jet/sqlite/SqliteTables.h"

namespace kvi::jet {
namespace {

namespace fs = std::filesystem;

constexpr int kPiece = 20000;  // rows read at once

std::string List(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) list += (list.empty() ? "" : ",") + name;
  return list;
}

// The columns of a table as both engines have them: the hidden ones and the fields.
std::vector<std::string> Columns(const StoredTable& table) {
  std::vector<std::string> names{"[_rid]", "[_ver]"};
  for (const FieldDef& field : table.Fields) names.push_back(Bracketed(field.Name));
  return names;
}

// A table of the server into one of a file, with its rows' own numbers.
class TableOut {
 public:
  TableOut(PostgresConnection& from, SqliteConnection& to, const StoredTable& table)
      : from_(from), to_(to), table_(table) {}

  void Make(const std::vector<IndexDef>& indexes) {
    CreateTable(to_, {table_.Name, table_.Fields, {}});
    std::vector<std::string> columns = Columns(table_), marks(columns.size(), "?");
    const std::string insert = "INSERT INTO " + Bracketed(table_.Name) + "(" + List(columns) +
                               ") VALUES(" + List(marks) + ")";
    const std::string select = "SELECT " + List(columns) + " FROM " + Bracketed(table_.Name) +
                               " WHERE [_rid]>?1 ORDER BY [_rid] LIMIT " + std::to_string(kPiece);
    std::int64_t last = 0;
    while (Piece(select, insert, last) == kPiece) {
    }
    int number = 0;
    for (const IndexDef& index : indexes) CreateIndex(to_, table_.Name, index, ++number);
  }

 private:
  int Piece(const std::string& select, const std::string& insert, std::int64_t& last) {
    StatementRun rows(from_, select);
    rows.Bind(1, last);
    int count = 0;
    std::vector<Value> values(table_.Fields.size());
    for (; rows.Step(); ++count) {
      StatementRun row(to_, insert);
      last = rows.Whole(0);
      row.Bind(1, last);
      row.Bind(2, rows.Whole(1));
      for (std::size_t field = 0; field < values.size(); ++field) {
        const int column = static_cast<int>(field) + 2;
        values[field] = rows.Field(column, table_.Fields[field].Type);
        row.Bind(column + 1, values[field]);
      }
      row.Step();
    }
    return count;
  }

  PostgresConnection& from_;
  SqliteConnection& to_;
  const StoredTable& table_;
};

// More than the fifteen that a person is shown, so that the number comes back as it was.
std::string AllDigits(double number) {
  std::array<char, 32> digits;
  return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr};
}

// A row of COPY's text form.
class CopyLine {
 public:
  void Add(const Value& value) {
    if (!text_.empty()) text_ += '\t';
    if (value.IsNull())
      text_ += "\\N";
    else
      Append(value.IsDate()      ? IsoText(value.AsDate())
             : value.IsBoolean() ? (value.Boolean() ? "-1" : "0")
             : value.IsDouble()  ? AllDigits(value.AsNumber())
                                 : value.Text());
  }
  std::string Take() { return std::exchange(text_, {}) + '\n'; }

 private:
  void Append(std::string_view text) {
    for (const char letter : text) {
      const char* mark = letter == '\\'   ? "\\\\"
                         : letter == '\t' ? "\\t"
                         : letter == '\n' ? "\\n"
                         : letter == '\r' ? "\\r"
                                          : nullptr;
      if (mark)
        text_ += mark;
      else
        text_ += letter;
    }
  }
  std::string text_;
};

// The content of a file, into the server.
class ContentIn : public NewContent {
 public:
  ContentIn(PostgresConnection& to, const std::string& path) : to_(to), from_(path, false) {}

  void PutIn(std::uint32_t generation) override;

 private:
  void TakeTable(const std::string& name);
  std::vector<IndexDef> IndexesOf(const std::string& table);
  void CopyRows(const StoredTable& table);

  PostgresConnection& to_;
  SqliteConnection from_;
};

// What a file's table has: one of another tool numbers its rows by itself and counts no writes.
std::string FileColumns(const StoredTable& table) {
  std::vector<std::string> names{Bracketed(table.Key), table.Versioned ? "[_ver]" : "1"};
  for (const FieldDef& field : table.Fields) names.push_back(Bracketed(field.Name));
  return List(names);
}

void ContentIn::PutIn(std::uint32_t generation) {
  to_.ActAsOwner();
  for (const std::string& table : to_.TableNames())
    to_.Ask("DROP TABLE public." + ServerName(table));
  for (const std::string& table : from_.TableNames()) TakeTable(table);
  to_.Ask("INSERT INTO kvi.settings VALUES('generation','" + std::to_string(generation) +
          "') ON CONFLICT(name) DO UPDATE SET value=excluded.value");
  to_.TellOfTables();
}

// The rows first, and then the indexes: so each is sorted once.
void ContentIn::TakeTable(const std::string& name) {
  const auto table = from_.ReadTable(name);
  if (!table || table->Key.empty()) throw RunTimeError(3343, "'" + name + "' has no row numbers.");
  const TableDef design{table->Name, table->Fields, IndexesOf(name)};
  for (const std::string& sql : ServerTableWithoutIndexesSql(design)) to_.Ask(sql);
  CopyRows(*table);
  for (const IndexDef& index : design.Indexes) to_.Ask(ServerIndexSql(design, index));
  to_.KeepIndexes(design);
  const std::string server = "public." + ServerName(name);
  to_.Ask("SELECT setval(pg_get_serial_sequence('" + Replace(server, "'", "''") +
          "','_rid'),greatest((SELECT max(\"_rid\") FROM " + server + "),1))");
  to_.Ask("ANALYZE " + server);
}

std::vector<IndexDef> ContentIn::IndexesOf(const std::string& table) {
  StatementRun run(from_,
                   "SELECT sql FROM sqlite_master WHERE type='index' AND tbl_name=?1 AND sql IS "
                   "NOT NULL ORDER BY rowid");
  run.Bind(1, std::string_view(table));
  std::vector<IndexDef> indexes;
  while (run.Step()) indexes.push_back(IndexOfSql(run.Text(0)));
  return indexes;
}

void ContentIn::CopyRows(const StoredTable& table) {
  std::vector<std::string> names{"\"_rid\"", "\"_ver\""};
  for (const FieldDef& field : table.Fields) names.push_back(ServerName(field.Name));
  StatementRun rows(from_, "SELECT " + FileColumns(table) + " FROM " + Bracketed(table.Name));
  CopyLine line;
  to_.CopyIn("COPY public." + ServerName(table.Name) + "(" + List(names) + ") FROM STDIN",
             [&](std::string& text) {
               if (!rows.Step()) return false;
               line.Add(rows.Whole(0));
               line.Add(rows.Whole(1));
               for (std::size_t field = 0; field < table.Fields.size(); ++field)
                 line.Add(rows.Field(static_cast<int>(field) + 2, table.Fields[field].Type));
               text = line.Take();
               return true;
             });
}

}  // namespace

// As it is at one moment, while desks go on working.
void PostgresConnection::CopyTo(const std::string& path) {
  std::error_code ignored;
  if (fs::exists(fs::symlink_status(path, ignored))) throw RunTimeError(3204);
  // Another desk may be making a copy of that name at this moment.
  const std::string unfinished = path + "." + std::to_string(std::random_device{}()) + ".new";
  try {
    BeginMoment();
    SqliteConnection file(unfinished);
    file.Run("PRAGMA page_size=16384;PRAGMA synchronous=FULL;BEGIN");
    for (const std::string& name : TableNames()) {
      const auto table = ReadTable(name);
      TableOut(*this, file, *table).Make(KeptIndexes(name));
    }
    file.Run("COMMIT");
    file.Close();
    RollBack();
    if (!TakeName(unfinished, path)) throw RunTimeError(3204);
  } catch (...) {
    RollBack();
    fs::remove(unfinished, ignored);
    throw;
  }
}

std::unique_ptr<NewContent> PostgresConnection::OpenContent(const std::string& path) {
  return std::make_unique<ContentIn>(*this, path);
}

// The server keeps watch over its own pages; what can be told from here is whether it answers.
void PostgresConnection::Check() {
  TableNames();
}

}  // namespace kvi::jet
