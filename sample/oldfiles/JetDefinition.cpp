// How the writer describes a table.
#include <algorithm>

#include "base/RunTimeError.h"
#include "base/Utf8.h"
#include "jet/file/Row.h"
#include "sample/oldfiles/JetFileWriter.h"

namespace kvi::jetfile {
namespace {

constexpr std::uint64_t kMagic = 1625, kIndexMagic = 1923;

}  // namespace

bool IsVarying(const NewColumn& column) {
  return column.Varying || (column.Type != ColumnType::Boolean && LengthOf(column.Type) == 0);
}

std::string JetFileWriter::Name(const std::string& name) const {
  std::string text;
  for (std::size_t at = 0; at < name.size();)
    text += LittleEndian(NextCharacter(name, at), isJet4_ ? 2 : 1);
  return LittleEndian(text.size(), isJet4_ ? 2 : 1) + text;
}

std::uint64_t JetFileWriter::SizeOf(const NewColumn& column) const {
  switch (column.Type) {
    case ColumnType::Boolean:
      return 1;
    case ColumnType::Text:
      return column.Size * (isJet4_ ? 2 : 1);
    case ColumnType::Binary:
      return column.Size;
    default:
      return LengthOf(column.Type);
  }
}

std::string JetFileWriter::ColumnRecord(const NewColumn& column, std::uint64_t number,
                                        std::uint64_t place, std::uint64_t offset) const {
  constexpr std::uint64_t kSortOrder = 0x0409, kCodePage = 1252, kVarying = 2, kFixed = 3;
  const bool isText = column.Type == ColumnType::Text || column.Type == ColumnType::Memo;
  const std::uint64_t decimal = 28 | column.Scale << 8;  // precision and scale
  const bool isDecimal = column.Type == ColumnType::Numeric;
  std::string record = LittleEndian(static_cast<std::uint64_t>(column.Type), 1);
  if (isJet4_) record += LittleEndian(kMagic, 4);
  record += LittleEndian(number, 2) + LittleEndian(place, 2) + LittleEndian(number, 2);
  if (isJet4_)
    record += LittleEndian(isDecimal ? decimal : kSortOrder, 2) + LittleEndian(0, 2);
  else
    record += LittleEndian(0, 2) + LittleEndian(kSortOrder, 2) +
              LittleEndian(isDecimal ? decimal : kCodePage, 2);
  record += LittleEndian(IsVarying(column) ? kVarying : kFixed, 1);
  if (isJet4_) record += LittleEndian(isText ? 1 : 0, 1) + LittleEndian(0, 4);
  return record + LittleEndian(offset, 2) + LittleEndian(SizeOf(column), 2);
}

std::string JetFileWriter::ColumnRecords(const NewTable& table) const {
  std::vector<std::pair<std::string, std::string>> columns;  // the record and the name
  std::uint64_t offset = 0, place = 0;
  for (const NewColumn& column : table.Columns) {
    const bool varies = IsVarying(column);
    columns.emplace_back(ColumnRecord(column, columns.size(), varies ? place : 0, offset),
                         Name(column.Name));
    if (varies) ++place;
    if (!varies) offset += LengthOf(column.Type);
  }
  if (table.Backwards) std::ranges::reverse(columns);
  std::string text;
  for (const auto& [record, name] : columns) text += record;
  for (const auto& [record, name] : columns) text += name;
  return text;
}

std::string JetFileWriter::RealIndex(const NewTable& table, const NewIndex& index,
                                     std::uint32_t map) const {
  constexpr std::size_t kParts = 10;
  std::string record = isJet4_ ? LittleEndian(kIndexMagic, 4) : "";
  for (std::size_t part = 0; part < kParts; ++part) {
    std::ptrdiff_t number = 0xFFFF;
    if (part < index.Columns.size())
      number = std::ranges::find(table.Columns, index.Columns[part], &NewColumn::Name) -
               table.Columns.begin();
    record += LittleEndian(static_cast<std::uint64_t>(number), 2) + LittleEndian(1, 1);
  }
  record += LittleEndian(map, 4) + LittleEndian(0, isJet4_ ? 8 : 4);
  return record + LittleEndian(index.Unique ? 1 : 0, isJet4_ ? 6 : 1);
}

// Each index has data of its own, in this order. Backwards the records that name it stand the other
// way round.
std::string JetFileWriter::IndexRecords(const NewTable& table, std::uint32_t maps) const {
  constexpr std::uint64_t kForeign = 2, kNone = 0xFFFFFFFF;
  std::vector<std::pair<std::string, std::string>> logical;  // the record and the name
  std::string text;
  for (std::size_t i = 0; i < table.Indexes.size(); ++i) {
    const NewIndex& index = table.Indexes[i];
    text += RealIndex(table, index, static_cast<std::uint32_t>(maps << 8 | (2 + i)));
    const std::size_t position = table.Backwards ? table.Indexes.size() - 1 - i : i;
    std::string record = isJet4_ ? LittleEndian(kMagic, 4) : "";
    record += LittleEndian(position, 4) + LittleEndian(i, 4) + LittleEndian(0, 1) +
              LittleEndian(kNone, 4) + LittleEndian(0, 6);
    record += LittleEndian(index.ForeignKey ? kForeign : 0, isJet4_ ? 5 : 1);
    logical.emplace_back(std::move(record), Name(index.Name));
  }
  if (table.Backwards) std::ranges::reverse(logical);
  for (const auto& [record, name] : logical) text += record;
  for (const auto& [record, name] : logical) text += name;
  return text;
}

std::string JetFileWriter::Definition(const OpenTable& table, std::uint32_t maps) const {
  const NewTable& design = table.design;
  const auto varying = static_cast<std::uint64_t>(std::ranges::count_if(design.Columns, IsVarying));
  const std::uint64_t columns = design.Columns.size(), indexes = design.Indexes.size();
  if (columns > 255) throw RunTimeError(3163);
  std::string head = LittleEndian(table.count, 4) + LittleEndian(0, 4);
  if (isJet4_) head += LittleEndian(0, 16);
  head += LittleEndian(0x4E, 1) + LittleEndian(columns, 2) + LittleEndian(varying, 2) +
          LittleEndian(columns, 2) + LittleEndian(indexes, 4) + LittleEndian(indexes, 4) +
          LittleEndian(maps << 8, 4) + LittleEndian(maps << 8 | 1, 4);
  std::string text = isJet4_ ? LittleEndian(kMagic, 4) + head : head;
  for (std::size_t i = 0; i < indexes; ++i) text += LittleEndian(0, isJet4_ ? 12 : 8);
  text += ColumnRecords(design) + IndexRecords(design, maps) + LittleEndian(0xFFFF, 2);
  const std::uint64_t length = text.size() + 12;
  std::uint64_t mark = 0x4356;  // "VC"
  if (isJet4_) mark = length + 8 < pageSize_ ? pageSize_ - 8 - length : 0;
  return LittleEndian(0x0102, 2) + LittleEndian(mark, 2) + LittleEndian(0, 4) +
         LittleEndian(length, 4) + text;
}

}  // namespace kvi::jetfile
