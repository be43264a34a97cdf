#include "jet/file/TableReader.h"

#include <utility>

#include "jet/file/ColumnValue.h"
#include "jet/file/Row.h"

namespace kvi::jetfile {
namespace {

constexpr std::size_t kMostLines = 20;
constexpr int kMostHops = 16;

std::string Number(std::uint64_t number) {
  return std::to_string(number);
}

}  // namespace

TableReader::TableReader(PageFile& file, std::uint32_t definitionPage)
    : file_(file), table_(ReadDefinition(file, definitionPage)), longValues_(file) {
  try {
    std::vector<std::string> damaged;
    pages_ = ReadOwnedPages(file, table_, damaged);
    for (const std::string& what : damaged) Note(what);
  } catch (const FileError& error) {
    if (error.Kind != Fault::Damaged) throw;
    Note(error.Description);
  }
}

bool TableReader::Next(std::vector<Value>& row) {
  for (;;) {
    if (!page_ || slot_ >= page_->SlotCount()) {
      if (!NextPage()) break;
      continue;
    }
    try {
      const std::optional<Bytes> bytes = RowAt(slot_++);
      if (!bytes) continue;
      ReadRow(*bytes, row);
      ++rows_;
      return true;
    } catch (const FileError& error) {
      if (error.Kind != Fault::Damaged) throw;
      Note("page " + Number(pages_[nextPage_ - 1]) + ": " + error.Description);
    }
  }
  CompareCounts();
  return false;
}

// A page that was given back to the file is no damage; where it should have held rows, their count
// tells.
bool TableReader::NextPage() {
  while (nextPage_ < pages_.size()) {
    const std::uint32_t number = pages_[nextPage_++];
    slot_ = 0;
    try {
      if (file_.Read(number).All().U8(0) != kDataPage) continue;
      page_.emplace(file_, number);
      if (page_->Owner() == table_.Page) return true;
    } catch (const FileError& error) {
      if (error.Kind != Fault::Damaged) throw;
      Note(error.Description);
    }
  }
  page_.reset();
  return false;
}

// Nothing for a slot whose row is gone, or counts where it was moved from.
std::optional<Bytes> TableReader::RowAt(std::uint32_t slot) {
  const DataPage::Slot found = page_->At(slot);
  if (found.gone) return std::nullopt;
  return found.moved ? Follow(found.bytes) : found.bytes;
}

Bytes TableReader::Follow(Bytes pointer) {
  for (int hop = 0; hop < kMostHops; ++hop) {
    const RowPointer to = PointerOf(pointer.U32(0));
    farPage_.emplace(file_, to.page);
    if (farPage_->Owner() != table_.Page) RaiseDamaged("a row was moved to another table's page");
    const DataPage::Slot found = farPage_->At(to.slot);
    if (!found.moved) return found.bytes;
    pointer = found.bytes;
  }
  RaiseDamaged("a row was moved in a circle");
}

void TableReader::ReadRow(Bytes bytes, std::vector<Value>& values) {
  const Row row(file_.Fields(), table_, bytes);
  values.resize(table_.Columns.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    const Column& column = table_.Columns[i];
    values[i] = Value();
    if (column.Type == ColumnType::Boolean) {
      values[i] = row.IsSet(column);
    } else if (row.IsSet(column)) {
      try {
        values[i] = ReadValue(column, row.Of(column));
      } catch (const FileError& error) {
        if (error.Kind != Fault::Damaged) throw;
        Note("row " + Number(rows_ + 1) + ", " + column.Name + ": " + error.Description);
      }
    }
  }
}

Value TableReader::ReadValue(const Column& column, Bytes bytes) {
  if (column.Type == ColumnType::Memo) return file_.Text().Value(longValues_.Read(bytes));
  if (column.Type == ColumnType::Ole) return longValues_.Read(bytes).Text();
  const std::optional<Value> value = ValueOf(column, bytes, file_.Text());
  if (!value)
    RaiseDamaged(column.Type == ColumnType::Date ? "no date of the calendar" : "no number");
  return *value;
}

void TableReader::Note(const std::string& what) {
  if (damage_.size() < kMostLines)
    damage_.push_back(what);
  else
    ++moreDamage_;
}

// More rows than declared are no damage: system tables are often off that way.
void TableReader::CompareCounts() {
  if (std::exchange(atEnd_, true) || rows_ >= table_.DeclaredRows) return;
  damage_.insert(damage_.begin(),
                 Number(rows_) + " of " + Number(table_.DeclaredRows) + " rows could be read");
}

std::vector<std::string> TableReader::Damage() const {
  std::vector<std::string> lines = damage_;
  if (moreDamage_ > 0) lines.push_back("and " + Number(moreDamage_) + " more faults");
  return lines;
}

}  // namespace kvi::jetfile
