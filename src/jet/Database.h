#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "jet/Recordset.h"
#include "jet/TableDef.h"

namespace kvi::jet {

class Engine;

// The one door to a database file, under the operations' classic names. Movable; a default one is
// closed, and every call on a closed one raises 3420. Recordsets opened from it share its engine
// and raise 3420 once it is closed.
class Database {
 public:
  Database();
  ~Database();
  Database(Database&&) noexcept;
  Database& operator=(Database&&) noexcept;

  // Raises 3024 for a missing file, 3051 when it may not be read, 3045 when another desk holds it
  // exclusively, 3343 for a file that is no database (also a zero-length or cut one), and
  // 3343 with its own description for a real Jet file. Never changes a file that it refuses. A file or folder
  // without write permission opens for reading; writing then raises 3027.
  static Database Open(const std::string& path, bool exclusive);
  // Makes a new file with the tables given; raises 3204 when one stands there already.
  static Database Create(const std::string& path, const std::vector<TableDef>& tables);

  bool IsOpen() const;
  void Close();

  // Opens a statement in the Jet dialect as a dynaset on its first row; a grouped, joined or
  // DISTINCT query is a snapshot.
  Recordset OpenRecordset(std::string_view sql);
  // Runs one action statement; the result is the count of rows it wrote. Commits at once, or with
  // the open WriteBatch.
  long Execute(std::string_view sql);

  // Tables in the order of their making, each with its fields as stored.
  std::vector<TableDef> TableDefs();
  // Appends a field; raises 3191 when the table has it already, 3265 for an unknown table.
  void AppendField(std::string_view table, const FieldDef& field);

  // Called before the program waits for a person: whatever is held in the file is given back. An
  // open WriteBatch commits what it has; an edit in progress gives its lock up and takes it again
  // at Update.
  void GiveBackLocks();

 private:
  friend class WriteBatch;
  explicit Database(std::shared_ptr<Engine> engine);
  std::shared_ptr<Engine> engine_;
};

// A real Jet file stands where ours is wanted: recognised by its signature, and refused. Its
// number is the classic "unrecognized database format"; the description names what it is.
bool IsJetFile(const std::string& path);

// A bulk pass: while one lives, rows are committed in groups of at most 100 ms, with a pause of
// 5 ms between groups for the other desks. What was written stays when the pass fails: the
// destructor commits the rest (a failure there is swallowed; call Finish() to see it). Nesting
// joins the outer batch.
class WriteBatch {
 public:
  explicit WriteBatch(Database& database);
  ~WriteBatch();
  WriteBatch(const WriteBatch&) = delete;
  WriteBatch& operator=(const WriteBatch&) = delete;

  // Commits the last group; raises as Update does.
  void Finish();

 private:
  std::shared_ptr<Engine> engine_;
  bool finished_ = false;
};

}  // namespace kvi::jet
