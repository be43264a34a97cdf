#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/Date.h"
#include "jet/TableDef.h"
#include "jet/dialect/JetSql.h"

namespace kvi::jet {

// A table as the engine has it. One that another tool made has no columns of ours: then the row
// number stands for `_rid`, and no change by another desk is noticed at Edit.
struct StoredTable {
  std::string Name;
  std::vector<FieldDef> Fields;  // without the hidden columns
  std::string Key;               // the column that identifies a row; "" when none does
  bool Versioned = false;
  // Those of a unique index, where writes go off later and may not fail then.
  std::vector<std::string> UniqueFields;
  // Those whose text without blanks has a hidden column for its key.
  std::vector<std::string> TrimmedKeys;
  // Counts the writes of this process to the table, so that rows held in memory know their age.
  std::shared_ptr<std::uint64_t> Writes;
};

// A prepared statement, run again and again by whoever started it, one run at a time.
class Statement {
 public:
  enum class Kind { Null, Whole, Number, Text };

  virtual ~Statement() = default;

  virtual int Parameters() = 0;
  virtual void BindNull(int index) = 0;
  virtual void Bind(int index, std::int64_t value) = 0;
  virtual void Bind(int index, double value) = 0;
  // The text must live as long as the run.
  virtual void Bind(int index, std::string_view text) = 0;
  virtual void Bind(int index, const Date& date) = 0;

  // Goes to the next row; false at the end.
  virtual bool Step() = 0;
  // Runs a statement that writes one row. Where that cannot collide with another row, an engine at
  // a distance sends it with what comes next, and a failure is told then.
  virtual void Write(bool) { Step(); }
  // Gives back what the run holds. Never fails.
  virtual void Finish() = 0;

  virtual int Columns() = 0;
  virtual std::string_view Name(int column) = 0;
  // The type that the column was declared with, "" for an expression.
  virtual std::string_view DeclaredType(int column) = 0;

  // Of the current row. Dates are texts in ISO form.
  virtual Kind KindOf(int column) = 0;
  virtual std::int64_t Whole(int column) = 0;
  virtual double Number(int column) = 0;
  virtual std::string_view Text(int column) = 0;
};

// The content of another file that is about to take the place of a database's.
class NewContent {
 public:
  virtual ~NewContent() = default;
  // Puts it in, under the lock that is held. `generation` is what the database is to tell of its
  // content from now on.
  virtual void PutIn(std::uint32_t generation) = 0;
};

// How much of the database a write locks against other desks.
enum class LockScope { Row, All };

// What the system asks of an engine: an open database, its statements, its one transaction, and
// whether others wrote. The rooms sqlite/ and postgres/ implement it; all that carries a meaning
// stands above. Statements come with names in brackets and parameters as ?1, ?2; what differs more
// is in the Translation of Form() and in the pieces given here.
class Connection {
 public:
  virtual ~Connection() = default;
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  virtual bool IsOpen() const = 0;
  virtual bool IsReadOnly() const = 0;
  virtual std::string Path() const = 0;
  virtual void Close() = 0;
  virtual SqlForm Form() const = 0;

  // Asked when a lock that another desk holds has lasted for kLockWait: true goes on waiting.
  std::function<bool()> OnLocked;
  // False where nobody is to be asked, or must not be as we hold a lock ourselves. Raises
  // NotWaiting for a No.
  bool AskToWait() const;

  // The prepared statement of this text, made at its first use. Raises what is wrong with it.
  virtual Statement& Start(std::string_view sql) = 0;
  // The rows that the last statement wrote, and those of all statements so far.
  virtual long RowsWritten() const = 0;
  virtual std::int64_t AllRowsWritten() const = 0;
  // The key that a new row is to be given; 0 where the engine gives it, and LastKey tells it.
  virtual std::int64_t NextKey(const StoredTable& table) = 0;
  virtual std::int64_t LastKey() const = 0;
  // The statement that fetches the rows of a list of keys, "[1,2]", in the list's order; the
  // columns are those of "t".
  virtual std::string ListSql(const std::string& columns, const StoredTable& table) const = 0;
  // What stands behind the statement that fetches a row which is about to be changed.
  virtual std::string_view ForUpdate() const { return {}; }

  virtual bool InTransaction() const = 0;
  // No lock on the database, whether a transaction was begun or not.
  virtual bool HoldsNothing() const = 0;
  // The lock is held, and nobody else can write anything.
  virtual bool IsAlone() const = 0;
  // False where another desk's lock lasts. In a transaction that holds a row, All takes the rest.
  virtual bool TakeWriteLock(LockScope scope) = 0;
  // False where another desk's lock lasts; then nothing is committed and the transaction stands.
  virtual bool Commit() = 0;
  virtual void RollBack() = 0;
  // Several reads of one state, as far as the engine has one without holding others up.
  virtual bool BeginRead() = 0;
  virtual void EndRead() = 0;
  // Goes over from reading to writing, where nothing can come in between.
  virtual bool WriteAfterRead() = 0;

  // What tells that somebody wrote: commits, changed tables, content replaced as a whole.
  struct Counters {
    std::uint64_t commits = 0, schema = 0;
    std::uint32_t generation = 0;
  };
  // Whether nobody can write while a statement gives its rows: then a look at the first of them
  // holds for all. Otherwise the look comes before the statement.
  virtual bool ReadsUnderLock() const { return true; }
  // Whether a statement costs a trip that is worth more than some rows in memory.
  virtual bool IsDistant() const { return false; }
  // Counts the lines made to a server: a transaction ends with its line.
  virtual std::uint64_t LineNumber() const { return 0; }
  // A commit whose answer was lost, by the server's number of it, 0 for none; and what became of it.
  virtual std::uint64_t UnsureCommit() const { return 0; }
  virtual bool WasCommitted(std::uint64_t) { return false; }
  // False while a look is known to show nothing new.
  virtual bool MayHaveChanged() = 0;
  virtual Counters Look() = 0;
  // By how much our own commit steps the commits.
  virtual std::uint64_t StepsOfCommit() const { return 1; }

  virtual std::vector<std::string> TableNames() = 0;
  // Null for an unknown one. (The defaults and the count of writes are not the engine's to know.)
  virtual std::shared_ptr<StoredTable> ReadTable(std::string_view table) = 0;
  virtual void AppendField(const StoredTable& table, const FieldDef& field) = 0;

  // As Database's operations of these names; the caller has given all locks back.
  virtual void CopyTo(const std::string& path) = 0;
  virtual void Check() = 0;
  virtual std::unique_ptr<NewContent> OpenContent(const std::string& path) = 0;

 protected:
  Connection() = default;
};

// Opens what stands at the path: a database file, or the server's that a file there names. Raises
// as Database::Open.
std::unique_ptr<Connection> OpenConnection(const std::string& path, bool exclusive);
// Makes the tables where the file at the path names a server's database, which has none yet; false
// where it does not.
bool MakeTablesOnServer(const std::string& path, const std::vector<TableDef>& tables);

}  // namespace kvi::jet
