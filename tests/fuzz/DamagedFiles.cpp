#include "fuzz/DamagedFiles.h"

#include <algorithm>
#include <random>

#include "jet/file/OldFile.h"
#include "jet/file/TableReader.h"
#include "sample/oldfiles/JetFileWriter.h"

namespace kvi::jetfile {
namespace {

// Chance without the library's distributions, which differ between machines.
class Chance {
 public:
  explicit Chance(std::uint64_t seed) : engine_(seed) {}
  std::size_t Below(std::size_t count) { return count == 0 ? 0 : engine_() % count; }

 private:
  std::mt19937_64 engine_;
};

std::string CellText(const Value& value) {
  if (value.IsNull()) return "Null";
  if (value.IsDate()) return IsoText(value.AsDate());
  return value.IsText() ? "'" + value.AsText() + "'" : value.Text();
}

std::string DumpTable(OldFile& file, std::uint32_t page) {
  std::string text;
  try {
    TableReader rows(file.Pages(), page);
    for (std::vector<Value> row; rows.Next(row);) {
      for (const Value& value : row) text += " " + CellText(value);
      text += "\n";
    }
    for (const std::string& line : rows.Damage()) text += "! " + line + "\n";
  } catch (const FileError& error) {
    if (error.Kind != Fault::Damaged) throw;
    text += "! " + error.Description + "\n";
  }
  return text;
}

void ChangeBytes(std::string& file, std::size_t pageSize, Chance& chance) {
  constexpr unsigned char kTelling[] = {0x00, 0x01, 0x7F, 0x80, 0xFF, 0xFE, 0x40, 0xC0};
  for (std::size_t count = 1 + chance.Below(16); count > 0; --count) {
    std::size_t at = chance.Below(file.size());
    // Heads of pages, and the catalogue's own definition, are what most depends on.
    if (chance.Below(2) == 0) at = at / pageSize * pageSize + chance.Below(64);
    if (chance.Below(8) == 0) at = 2 * pageSize + chance.Below(pageSize);
    if (at >= file.size()) continue;
    file[at] = static_cast<char>(
        chance.Below(3) == 0 ? chance.Below(256) : kTelling[chance.Below(std::size(kTelling))]);
  }
}

}  // namespace

std::string SoundFile(Version version) {
  JetFileWriter writer(version);
  NewTable parts{"Parts",
                 {{"id", ColumnType::Long},
                  {"name", ColumnType::Text, 20},
                  {"ok", ColumnType::Boolean},
                  {"note", ColumnType::Memo},
                  {"qty", ColumnType::Numeric, 0, 4},
                  {"day", ColumnType::Date},
                  {"cost", ColumnType::Currency},
                  {"pic", ColumnType::Ole}},
                 {{"key", {"id"}, true}, {"names", {"name"}}}};
  writer.Begin(parts);
  for (int i = 0; i < 40; ++i)
    writer.Add({i,
                "Part " + std::to_string(i),
                i % 2 == 0,
                std::string(i % 7 * 60, 'n'),
                "123456",
                36000 + i / 7.0,
                1.5 * i,
                {}},
               i % 9 == 4   ? Fate::Moved
               : i % 9 == 5 ? Fate::Deleted
                            : Fate::Stays);
  writer.Add({99, "long", true, std::string(9000, 'x'), "-1", -1.75, -1, std::string(300, 'p')},
             Fate::MovedTwice);
  NewTable wide{"Wide", {}};
  for (int i = 0; i < 60; ++i) wide.Columns.push_back({"column " + std::to_string(i)});
  wide.Backwards = wide.ReferencedMap = true;
  writer.Begin(wide);
  for (int i = 0; i < 12; ++i)
    writer.Add({"a", Value(), std::string(static_cast<std::size_t>(i) * 4, 'w'), "", "b"});
  writer.AddLinked("Vendors", "C:\\V.MDB", "V");
  return writer.Finish();
}

std::string Damaged(const std::string& file, std::uint64_t seed) {
  Chance chance(seed);
  const bool isJet4 = file[0x14] == 1;
  const std::size_t pageSize = isJet4 ? kJet4Layout.pageSize : kJet3Layout.pageSize;
  std::string damaged = file;
  const std::size_t kind = chance.Below(10), pages = file.size() / pageSize;
  if (kind == 0) damaged.resize(chance.Below(file.size()));
  if (kind == 1) {
    const std::string page = file.substr(chance.Below(pages) * pageSize, pageSize);
    damaged.replace(chance.Below(pages) * pageSize, pageSize, page);
  }
  if (kind > 1 || chance.Below(2) == 0) ChangeBytes(damaged, pageSize, chance);
  return damaged;
}

std::string Dump(const std::string& path, const std::string& password) {
  OldFile file(path, password);
  std::string text;
  for (const std::string& line : file.Damage()) text += "! " + line + "\n";
  for (const Object& object : file.Objects()) {
    text += object.Name + (object.kind == Object::Kind::Query ? " (query)" : "");
    if (object.kind == Object::Kind::Linked) text += " is " + object.Within + " in " + object.Place;
    text += "\n";
    if (object.kind == Object::Kind::Table) text += DumpTable(file, object.Page);
  }
  return text;
}

}  // namespace kvi::jetfile
