#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/Value.h"
#include "jet/TableDef.h"

namespace kvi::jet {

class RecordsetImpl;

// A dynaset (or, for a grouped or joined query, a snapshot) under the operations' classic names.
// Movable, owned by whoever opened it; replacing one closes it. No statement is open between two
// calls, so that a standing recordset never blocks another desk.
//
// The current row: after opening it is the first; after AddNew and Update it is the one before,
// and the new row stands at the end of the set; after Delete the row is gone and MoveNext goes to
// the one behind it. Reading without a current row raises 3021, on a deleted one 3167. Moving loses
// an edit that was not written.
//
// Which rows a dynaset has, and in which order, is fixed when it is opened; its own new rows join
// it, whatever its condition says. Each row is seen as it stands when it becomes the current one
// (in a fast walk a change of the last 2 ms may be missed; Edit never misses one).
class Recordset {
 public:
  Recordset();  // closed; every call raises 3420
  ~Recordset();
  Recordset(Recordset&&) noexcept;
  Recordset& operator=(Recordset&&) noexcept;

  bool IsOpen() const;
  void Close();

  // (EOF itself is a macro of <cstdio>.)
  bool Eof() const;
  bool Bof() const;
  // Rows reached so far is all that the classic engine promises; here it is always the whole set.
  int RecordCount() const;

  void MoveFirst();
  void MoveLast();
  void MoveNext();
  void MovePrevious();

  // Goes to the first of the set's rows that meets the criterion, through an index where there is
  // one; NoMatch() tells whether there was none, and the current row then stays.
  void FindFirst(std::string_view criterion);
  bool NoMatch() const;

  // The field's content in the current row, or in the edit buffer while one is open. Valid until
  // the next call that moves or writes. Raises 3265 for an unknown field.
  const Value& operator[](std::string_view field) const;
  std::string Text(std::string_view field) const { return (*this)[field].Text(); }
  double Number(std::string_view field) const { return (*this)[field].Number(); }

  // AddNew opens an empty edit buffer. Edit takes the file's write lock and reads the row afresh:
  // 3197 when another desk changed it meanwhile (the edit IS open then, on the fresh row: whoever
  // passes over 3197 goes on, and the last writer wins), 3260 when the lock stays held for 2
  // seconds, 3167 when the row is gone.
  void AddNew();
  void Edit();
  // Puts a value into the edit buffer: 3020 without one, 3163 for a text over the field's size,
  // 3421 for a value that the field's type cannot take ("" into a number or a date too). Null is
  // taken by every field; a boolean one makes it False.
  void Set(std::string_view field, const Value& value);
  // Writes the fields that were set to another value than they have; none, and nothing is written,
  // so no other desk sees a change. 3020 without an edit, 3022 for a duplicate key, 3183 for a
  // full disk, 3027 for a read-only file, 3260 for a lock that lasts. After each of them the row is
  // as it was, the lock is given back, the edit buffer is kept and Update can be run again.
  void Update();
  void CancelUpdate();
  void Delete();

  const std::vector<FieldDef>& Fields() const;

 private:
  friend class Database;
  explicit Recordset(std::unique_ptr<RecordsetImpl> impl);
  RecordsetImpl& Impl() const;

  std::unique_ptr<RecordsetImpl> impl_;
};

}  // namespace kvi::jet
