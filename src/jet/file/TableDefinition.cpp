#include "jet/file/TableDefinition.h"

#include <algorithm>
#include <set>
#include <utility>

#include "jet/file/DataPage.h"

namespace kvi::jetfile {
namespace {

constexpr std::size_t kMostPages = 64, kMostColumns = 255, kMostIndexes = 1000;
constexpr std::size_t kContinued = 8;  // the head of a definition's further page
constexpr std::size_t kIndexColumns = 10;
constexpr unsigned kNoColumn = 0xFFFF;
constexpr std::uint8_t kFixedFlag = 0x01, kUniqueFlag = 0x01, kAscendingFlag = 0x01;
constexpr std::uint8_t kForeignKey = 2;

// The definition's pages as one stretch.
std::vector<std::uint8_t> Joined(PageFile& file, std::uint32_t number) {
  std::vector<std::uint8_t> joined;
  std::set<std::uint32_t> seen;
  for (; number != 0; number = file.Read(number).All().U32(4)) {
    const Page page = file.Read(number);
    const Bytes bytes = page.All();
    if (bytes.U8(0) != kDefinitionPage)
      RaiseDamaged("page " + std::to_string(number) + " is no definition of a table");
    if (!seen.insert(number).second || seen.size() > kMostPages)
      RaiseDamaged("the definition's pages run in a circle");
    const std::string_view text = bytes.From(joined.empty() ? 0 : kContinued).Text();
    joined.insert(joined.end(), text.begin(), text.end());
  }
  return joined;
}

// Walks a definition from its header to its end.
class DefinitionReader {
 public:
  DefinitionReader(PageFile& file, Bytes bytes)
      : text_(file.Text()), layout_(file.Fields()), bytes_(bytes) {}

  TableDefinition Read() {
    const auto& at = layout_.definition;
    table_.DeclaredRows = bytes_.U32(at.declaredRows);
    table_.MostColumns = bytes_.U16(at.mostColumns);
    table_.OwnedPages = bytes_.U32(at.ownedPages);
    const std::size_t columns = bytes_.U16(at.columns);
    const std::size_t real = bytes_.U32(at.realIndexes), logical = bytes_.U32(at.logicalIndexes);
    if (columns == 0 || columns > kMostColumns || columns > table_.MostColumns)
      RaiseDamaged("the definition tells of " + std::to_string(columns) + " columns");
    if (real > kMostIndexes || logical > kMostIndexes)
      RaiseDamaged("the definition tells of " + std::to_string(std::max(real, logical)) +
                   " indexes");
    at_ = at.end + real * layout_.realIndex.statistics;
    ReadColumns(columns);
    const std::size_t records = Pass(real * layout_.realIndex.size);
    ReadIndexes(records, real, logical);
    return std::move(table_);
  }

 private:
  std::size_t Pass(std::size_t length) {
    const std::size_t before = at_;
    bytes_.Part(before, length);
    at_ += length;
    return before;
  }

  std::string Name() {
    const std::size_t at = Pass(layout_.countSize);
    const std::size_t length = layout_.countSize == 1 ? bytes_.U8(at) : bytes_.U16(at);
    return text_.Name(bytes_.Part(Pass(length), length));
  }

  void ReadColumns(std::size_t count) {
    const auto& field = layout_.column;
    for (std::size_t i = 0; i < count; ++i) {
      const Bytes record = bytes_.Part(Pass(field.size), field.size);
      Column column;
      column.Type = static_cast<ColumnType>(record.U8(0));
      column.Fixed = (record.U8(field.flags) & kFixedFlag) != 0;
      column.Number = record.U16(field.number);
      column.VariableIndex = record.U16(field.variableIndex);
      column.FixedOffset = record.U16(field.fixedOffset);
      column.Size = record.U16(field.length);
      column.Scale = record.U8(field.scale);
      table_.Columns.push_back(column);
    }
    for (Column& column : table_.Columns) column.Name = Name();
    std::ranges::sort(table_.Columns, {}, &Column::Number);
    if (std::ranges::adjacent_find(table_.Columns, {}, &Column::Number) != table_.Columns.end())
      RaiseDamaged("two columns have one number");
  }

  // What an index is made of lies in the record that its data number tells, not in the one at its
  // own place.
  void ReadIndexes(std::size_t realAt, std::size_t real, std::size_t logical) {
    const auto& field = layout_.logicalIndex;
    const std::size_t records = Pass(logical * field.size);
    for (std::size_t i = 0; i < logical; ++i) {
      const Bytes record = bytes_.Part(records + i * field.size, field.size);
      Index index;
      index.Name = Name();
      const std::size_t dataNumber = record.U32(field.dataNumber);
      if (dataNumber >= real) RaiseDamaged("the index " + index.Name + " has no data");
      const std::size_t size = layout_.realIndex.size;
      Describe(index, bytes_.Part(realAt + dataNumber * size, size));
      if (record.U8(field.kind) != kForeignKey) table_.Indexes.push_back(std::move(index));
    }
  }

  void Describe(Index& index, Bytes record) const {
    index.Unique = (record.U8(layout_.realIndex.flags) & kUniqueFlag) != 0;
    for (std::size_t i = 0; i < kIndexColumns; ++i) {
      const std::size_t at = layout_.realIndex.columns + 3 * i;
      const unsigned number = record.U16(at);
      if (number == kNoColumn) continue;
      const auto column = std::ranges::lower_bound(table_.Columns, number, {}, &Column::Number);
      if (column == table_.Columns.end() || column->Number != number)
        RaiseDamaged("the index " + index.Name + " is on a column that is not there");
      index.Parts.push_back({static_cast<std::size_t>(column - table_.Columns.begin()),
                             (record.U8(at + 2) & kAscendingFlag) != 0});
    }
  }

  const TextDecoder& text_;
  const Layout& layout_;
  const Bytes bytes_;
  std::size_t at_ = 0;
  TableDefinition table_;
};

// Takes the pages that the bits of a map stand for.
class PageList {
 public:
  PageList(PageFile& file, std::vector<std::string>& damaged) : file_(file), damaged_(damaged) {}

  void Take(Bytes bits, std::uint64_t first) {
    for (std::size_t at = 0; at < bits.Size(); ++at)
      for (unsigned rest = bits.U8(at), bit = 0; rest != 0; rest >>= 1, ++bit)
        if (rest & 1) TakePage(first + 8 * at + bit);
  }
  std::vector<std::uint32_t> pages;

 private:
  void TakePage(std::uint64_t page) {
    if (page > 0 && page < file_.PageCount())
      pages.push_back(static_cast<std::uint32_t>(page));
    else if (!std::exchange(beyond_, true))
      damaged_.push_back("page " + std::to_string(page) + " is beyond the end of the file (" +
                         std::to_string(file_.PageCount()) + " pages)");
  }

  PageFile& file_;
  std::vector<std::string>& damaged_;
  bool beyond_ = false;
};

void TakeReferenced(PageFile& file, Bytes map, PageList& list, std::vector<std::string>& damaged) {
  const std::uint64_t perPage = (file.Fields().pageSize - 4) * 8;
  for (std::size_t i = 0; 5 + 4 * i <= map.Size(); ++i) {
    const std::uint32_t number = map.U32(1 + 4 * i);
    if (number == 0) continue;
    try {
      const Page page = file.Read(number);
      if (page.All().U8(0) != kBitmapPage)
        RaiseDamaged("page " + std::to_string(number) + " is no map of pages");
      list.Take(page.All().From(4), i * perPage);
    } catch (const FileError& error) {
      if (error.Kind != Fault::Damaged) throw;
      damaged.push_back(error.Description);
    }
  }
}

}  // namespace

TableDefinition ReadDefinition(PageFile& file, std::uint32_t page) {
  const std::vector<std::uint8_t> joined = Joined(file, page);
  TableDefinition table = DefinitionReader(file, {joined.data(), joined.size()}).Read();
  table.Page = page;
  return table;
}

std::vector<std::uint32_t> ReadOwnedPages(PageFile& file, const TableDefinition& table,
                                          std::vector<std::string>& damaged) {
  const RowPointer pointer = PointerOf(table.OwnedPages);
  const DataPage page(file, pointer.page);
  const Bytes map = page.At(pointer.slot).bytes;
  if (map.Size() < 5) RaiseDamaged("the map of its pages is cut off");
  PageList list(file, damaged);
  if (map.U8(0) == 0)
    list.Take(map.From(5), map.U32(1));
  else if (map.U8(0) == 1)
    TakeReferenced(file, map, list, damaged);
  else
    RaiseDamaged("the map of its pages is of an unknown kind");
  return std::move(list.pages);
}

}  // namespace kvi::jetfile
