#include "jet/sqlite/OldTable.h"

#include <algorithm>
#include <optional>

#include "jet/engine/FieldRules.h"

namespace kvi::jet {
namespace {

using jetfile::ColumnType;

constexpr unsigned kLongestText = 255;
constexpr int kGuidLength = 38;

// Nothing for what no field can hold. (A whole number of 32 bits has room in a double.)
std::optional<FieldDef> FieldOf(const jetfile::Column& column, jetfile::Version version) {
  switch (column.Type) {
    case ColumnType::Boolean:
      return FieldDef{column.Name, FieldType::Boolean};
    case ColumnType::Byte:
    case ColumnType::Integer:
      return FieldDef{column.Name, FieldType::Integer};
    case ColumnType::Long:
    case ColumnType::Currency:
    case ColumnType::Double:
    case ColumnType::Numeric:
      return FieldDef{column.Name, FieldType::Double};
    case ColumnType::Single:
      return FieldDef{column.Name, FieldType::Single};
    case ColumnType::Date:
      return FieldDef{column.Name, FieldType::Date};
    case ColumnType::Text: {
      const unsigned size = version == jetfile::Version::Jet3 ? column.Size : column.Size / 2;
      const bool known = size > 0 && size <= kLongestText;
      return FieldDef{column.Name, FieldType::Text, static_cast<int>(known ? size : kLongestText)};
    }
    case ColumnType::Memo:
      return FieldDef{column.Name, FieldType::Memo};
    case ColumnType::Guid:
      return FieldDef{column.Name, FieldType::Text, kGuidLength};
    default:
      return std::nullopt;
  }
}

std::vector<IndexDef> UniqueIndexes(const jetfile::TableDefinition& table,
                                    const std::vector<std::size_t>& kept) {
  std::vector<IndexDef> indexes;
  for (const jetfile::Index& index : table.Indexes) {
    const bool whole = std::ranges::all_of(index.Parts, [&](const jetfile::Index::Part& part) {
      return std::ranges::find(kept, part.column) != kept.end();
    });
    if (!index.Unique || !whole || index.Parts.empty()) continue;
    IndexDef made{{}, true};
    for (const jetfile::Index::Part& part : index.Parts)
      made.Columns.push_back(Bracketed(table.Columns[part.column].Name));
    indexes.push_back(std::move(made));
  }
  return indexes;
}

}  // namespace

OldTable::OldTable(jetfile::PageFile& file, const std::string& name, std::uint32_t page)
    : reader_(file, page), design_{name, {}, {}} {
  const jetfile::TableDefinition& table = reader_.Definition();
  for (std::size_t i = 0; i < table.Columns.size(); ++i) {
    if (const auto field = FieldOf(table.Columns[i], file.Version())) {
      design_.Fields.push_back(*field);
      kept_.push_back(i);
    } else {
      unheld_.push_back({i});
    }
  }
  design_.Indexes = UniqueIndexes(table, kept_);
}

bool OldTable::Next(std::vector<Value>& row) {
  if (!reader_.Next(all_)) return false;
  row.resize(kept_.size());
  for (std::size_t i = 0; i < kept_.size(); ++i) row[i] = std::move(all_[kept_[i]]);
  for (Unheld& left : unheld_) left.values += all_[left.column].IsNull() ? 0 : 1;
  return true;
}

std::vector<std::string> OldTable::LeftOut() const {
  std::vector<std::string> lines;
  for (const Unheld& left : unheld_)
    if (left.values > 0)
      lines.push_back(reader_.Definition().Columns[left.column].Name + ": " +
                      std::to_string(left.values) + " pictures or other binary values");
  return lines;
}

}  // namespace kvi::jet
