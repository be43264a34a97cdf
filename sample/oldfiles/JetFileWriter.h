#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "base/Value.h"
#include "jet/file/Format.h"

namespace kvi::jetfile {

struct NewColumn {
  std::string Name;
  ColumnType Type = ColumnType::Text;
  unsigned Size = 50;    // characters of a text, bytes of a binary
  unsigned Scale = 0;    // of a Numeric
  bool Varying = false;  // of a type of fixed length: stored among the texts all the same
};

struct NewIndex {
  std::string Name;
  std::vector<std::string> Columns;
  bool Unique = false;
  bool ForeignKey = false;
};

struct NewTable {
  std::string Name;
  std::vector<NewColumn> Columns;
  std::vector<NewIndex> Indexes = {};
  bool Backwards = false;      // columns and indexes are described from the last to the first
  bool ReferencedMap = false;  // also where a short map would do
  std::uint32_t Flags = 0;     // in the catalogue
};

// What becomes of a row once it is written.
enum class Fate { Stays, Deleted, Moved, MovedTwice, MovedInACircle };

// Makes a Jet 3 or Jet 4 file with the content given, in the smallest form that its readers take:
// indexes are described and stay empty, and nothing in it was ever changed. For samples and tests;
// raises 3163 for what this form has no room for.
class JetFileWriter {
 public:
  explicit JetFileWriter(Version version, std::string password = "", std::uint32_t key = 0);

  // Begins a table, to which rows are added until the next one begins. A row of fewer values than
  // columns is one that was written before the other columns were added. Binary, OLE and GUID are
  // texts of their bytes, a Numeric its digits without a point, a whole number in a Currency is a
  // count of 1/10000, a number in a Date a count of days.
  void Begin(NewTable table);
  void Add(const std::vector<Value>& row, Fate fate = Fate::Stays);
  void AddLinked(const std::string& name, const std::string& place, const std::string& within);
  void AddQuery(const std::string& name);

  // The whole file. Ends the writing.
  std::string Finish();

 private:
  // Where rows of one owner go: the page that has room still, 0 before the first.
  struct Rows {
    std::uint32_t owner = 0, page = 0;
    std::vector<std::uint32_t> pages = {};
  };
  struct OpenTable {
    NewTable design;
    std::uint32_t page = 0;
    std::uint32_t count = 0;
    Rows rows;
  };

  std::uint32_t NewPage(const std::string& start);
  std::uint32_t Append(Rows& rows, const std::string& bytes, unsigned flags = 0);
  void OpenPage(Rows& rows);
  void Put(std::uint32_t page, std::size_t at, std::uint64_t number, std::size_t size);
  std::uint64_t Get(std::uint32_t page, std::size_t at, std::size_t size) const;

  std::string EncodeRow(const NewTable& table, const std::vector<Value>& row);
  std::string Field(const NewColumn& column, const Value& value);
  std::string LongValue(const std::string& bytes);
  std::string Text(const std::string& text, std::size_t mostCompressed) const;

  void AddTo(OpenTable& table, const std::vector<Value>& row, Fate fate);
  void Close(OpenTable& table);
  std::string MapOf(const std::vector<std::uint32_t>& pages, bool referenced);
  std::string Definition(const OpenTable& table, std::uint32_t maps) const;
  std::uint64_t SizeOf(const NewColumn& column) const;
  std::string ColumnRecord(const NewColumn& column, std::uint64_t number, std::uint64_t place,
                           std::uint64_t offset) const;
  std::string ColumnRecords(const NewTable& table) const;
  std::string RealIndex(const NewTable& table, const NewIndex& index, std::uint32_t map) const;
  std::string IndexRecords(const NewTable& table, std::uint32_t maps) const;
  std::string Name(const std::string& name) const;
  void AddObject(const std::string& name, std::int64_t id, int type, const Value& flags,
                 const Value& place = {}, const Value& within = {});
  std::string Header() const;

  const Version version_;
  const bool isJet4_;
  const std::size_t pageSize_;
  const std::string password_;
  const std::uint32_t key_;
  std::vector<std::string> pages_;
  OpenTable catalogue_, table_;
  Rows longValues_;
};

// Whether a column's values stand among those of varying length.
bool IsVarying(const NewColumn& column);
// Numbers as the file has them, the lowest byte first.
std::string LittleEndian(std::uint64_t number, std::size_t size);

}  // namespace kvi::jetfile
