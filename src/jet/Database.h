#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "jet/Conversion.h"
#include "jet/NotWaiting.h"
#include "jet/Recordset.h"
#include "jet/TableDef.h"

namespace kvi::jet {

struct OpenFile;
struct ForeignDatabase;

// The one door to a database, a file or one on a server that a file names (jet/Server.h), under the
// operations' classic names. Movable; a default one is
// closed, and every call on a closed one raises 3420. Recordsets opened from it share its engine
// and raise 3420 once it is closed.
class Database {
 public:
  Database();
  ~Database();
  Database(Database&&) noexcept;
  Database& operator=(Database&&) noexcept;

  // Raises 3024 for a missing file, 3051 when it may not be read, 3045 when another desk holds it
  // exclusively, 3343 for a file that is no database (also a zero-length or cut one), and 3343 with
  // its own description for a real Jet file. Never changes a file that it refuses. A save that was
  // broken off (a killed desk, a power cut) is undone here; 3051 where rights forbid that. A file
  // or folder without write permission opens for reading; writing then raises 3027.
  //
  // A SQLite file of another tool opens as well: its tables are read and written by their row
  // numbers, and without `_ver` no change by another desk is noticed. A table without row numbers
  // opens as a snapshot.
  //
  // A file that names a server's database opens that: 3151 where it cannot be reached (then, and in
  // any later call: what was being saved is told of), 3343 for one that is none of ours, 3045 for
  // exclusive use while other desks are connected, or the other way round.
  static Database Open(const std::string& path, bool exclusive);
  // Makes a new file with the tables given, and uses their defaults; raises 3204 when one stands
  // there already. Where it names a server's database, the tables are made there; 3204 where it has
  // some.
  static Database Create(const std::string& path, const std::vector<TableDef>& tables);

  // Opens the content of another program's file, as it is now, as a database of its own that can
  // be read and not written (3027); nothing reaches the file itself. It is a Jet 3 or Jet 4 file,
  // or one of our own kind. Raises as CheckOldFile, and as Open.
  static ForeignDatabase OpenForeign(const std::string& path, const std::string& password = "");

  bool IsOpen() const;
  void Close();

  // Opens a statement in the Jet dialect as a dynaset on its first row; a grouped, joined or
  // DISTINCT query is a snapshot, which cannot be written (3027). Raises 3061 or 3078 for a wrong
  // name, 3075 for a bad statement, 3219 for one that acts.
  Recordset OpenRecordset(std::string_view sql);
  // Opens a query as a snapshot whatever its shape, with these of its fields alone: what another
  // desk changes or deletes meanwhile stays in it. It cannot be written (3027).
  Recordset OpenSnapshot(std::string_view sql, const std::vector<std::string>& fields);
  // Runs one action statement; the result is the count of rows it wrote. Commits at once, or with
  // the open WriteBatch. 3065 for a query; 3260 and the rest as Recordset::Update.
  long Execute(std::string_view sql);

  // Tables in the order of their making, each with its fields as stored.
  std::vector<TableDef> TableDefs();
  // Takes the fields' defaults from here for each AddNew: a file holds none, so that one that was
  // made before has them too.
  void UseDefaultsOf(const std::vector<TableDef>& tables);
  // Appends a field; raises 3191 when the table has it already, 3265 for an unknown table.
  void AppendField(std::string_view table, const FieldDef& field);

  // The open file's whole path.
  std::string Path() const;

  // The count of commits to the database, by any desk: the same as before means that nothing was
  // written meanwhile. Not within a WriteBatch.
  std::uint64_t ChangeCount();
  // Copies the whole database, as it is at one moment, into a new file, also out of a server; other
  // desks on a file wait meanwhile as for a save. The copy comes under its name when it is whole
  // and on the disk. Raises 3204 when a file stands there, 3260 for a lock that lasts, 3183 for a
  // full disk, 3051 where the file cannot be made.
  void CopyTo(const std::string& path);
  // Looks through every page of the file. Raises 3343 where one is damaged.
  void Check();
  // Puts the content of another database file in the place of this one's: all of its tables, with
  // their rows and indexes, or nothing. Rows that any desk read before are gone then (3167), also
  // where a new one has their key; new sets have the new rows. The other file is only read; whether
  // it is whole and holds what is wanted is the caller's to know. Errors as Execute and Open, and
  // 3045 for the open file itself. Not within a WriteBatch (5).
  void ReplaceContentWith(const std::string& path);

  // Writes what belongs together: all of it or nothing. A lock that lasts takes back what `work`
  // wrote and, where OnLocked goes on waiting, runs it again, on what the other desk left. Not
  // within a WriteBatch or another one (5).
  void WriteAtOnce(const std::function<void()>& work);

  // Who is asked when another desk's lock lasts, in every statement that may meet one: true goes
  // on waiting, without a limit; false raises NotWaiting. Nothing is held meanwhile. While it is
  // set, Edit raises no 3197: whoever waits for others writes over what they left. An empty
  // function asks nobody: then a lock that lasts is 3260.
  void OnLocked(std::function<bool()> ask);

  // Called before the program waits for a person: whatever is held in the file is given back. An
  // open WriteBatch commits what it has, and fails later where it cannot; what is written at once
  // is taken back, and its writing fails. An edit in progress gives its lock up and takes it again
  // at Update. If the row changed meanwhile, the last writer wins: Update writes the fields that
  // were set over the other desk's, and leaves the others as they are now.
  void GiveBackLocks();

 private:
  friend class KeyedQuery;
  friend class ReadTogether;
  friend class WriteBatch;
  explicit Database(std::shared_ptr<OpenFile> engine);
  std::shared_ptr<OpenFile> engine_;
};

// What OpenForeign gives. A damaged table is not in the content at all: so no half a table passes
// for a whole one. The protocol tells what is missing of it.
struct ForeignDatabase {
  Database Content;
  Conversion Protocol;
};

// A real Jet file stands where ours is wanted: recognised by its signature, and refused. Its
// number is the classic "unrecognized database format"; the description names what it is.
bool IsJetFile(const std::string& path);

// Several reads of one state of a file (of a server's they may see several): they take its lock
// once, and each after the first costs no trip to the file for what is in memory. Ends by itself
// before anything is written or a person is asked; within a WriteBatch or another one it does
// nothing.
class ReadTogether {
 public:
  explicit ReadTogether(Database& database);
  ~ReadTogether();
  ReadTogether(const ReadTogether&) = delete;
  ReadTogether& operator=(const ReadTogether&) = delete;

 private:
  std::shared_ptr<OpenFile> engine_;
  bool begun_;
};

// A bulk pass: while one lives, rows are committed in groups of at most 100 ms, with a pause of
// 5 ms between groups for the other desks. What was written stays when the pass fails: the
// destructor commits the rest (a failure there takes the last group back and is swallowed; call
// Finish() to see it). Nesting joins the outer batch. A lock that lasts is 3260 and asks nobody
// once a group has begun. On a server a failure that has nothing to do with the row (a full disk)
// may come with a later row of the group.
class WriteBatch {
 public:
  explicit WriteBatch(Database& database);
  ~WriteBatch();
  WriteBatch(const WriteBatch&) = delete;
  WriteBatch& operator=(const WriteBatch&) = delete;

  // Commits the last group; raises as Update does.
  void Finish();

 private:
  std::shared_ptr<OpenFile> engine_;
  bool finished_ = false;
};

}  // namespace kvi::jet
