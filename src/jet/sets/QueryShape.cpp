#include "jet/sets/QueryShape.h"

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "jet/engine/FieldRules.h"

namespace kvi::jet {
namespace {

std::vector<FieldDef> FieldsOf(const StoredTable& table, const std::vector<std::string>& names) {
  if (names.empty()) return table.Fields;
  std::vector<FieldDef> fields;
  for (const std::string& name : names) {
    const auto sameName = [&](const FieldDef& field) { return EqualsNoCase(field.Name, name); };
    const auto found = std::find_if(table.Fields.begin(), table.Fields.end(), sameName);
    if (found == table.Fields.end())
      throw RunTimeError(3061, DescriptionOf(3061) + " (" + name + ")");
    fields.push_back(*found);
  }
  return fields;
}

}  // namespace

QueryShape::QueryShape(const Connection& connection, std::shared_ptr<StoredTable> table,
                       const Translation& translation)
    : connection_(connection),
      table_(std::move(table)),
      fields_(FieldsOf(*table_, translation.Columns)),
      wanted_(fields_.Size(), 0) {
  if (!translation.Where.empty()) condition_ = " WHERE " + translation.Where;
  // The key comes last, so that ties have one order whatever plan is chosen.
  const std::string key = Bracketed(table_->Key);
  order_ = " ORDER BY " + (translation.OrderBy.empty() ? "" : translation.OrderBy + ",") + key;
  keySql_ = "SELECT " + key + " FROM " + Bracketed(table_->Name) + condition_ + order_;
}

void QueryShape::WantAlso(std::size_t field) {
  wanted_[field] = 1;
  settled_ = true;
  columns_.reset();
}

void QueryShape::WantNothing() {
  settled_ = true;
  columns_.reset();
}

const std::shared_ptr<const ColumnChoice>& QueryShape::Columns() {
  if (!columns_) columns_ = std::make_shared<const ColumnChoice>(Choose());
  return columns_;
}

ColumnChoice QueryShape::Choose() const {
  ColumnChoice choice;
  choice.PositionOf.assign(fields_.Size(), ColumnChoice::kNotFetched);
  const std::string key = Bracketed(table_->Key), table = Bracketed(table_->Name);
  const std::string version = table_->Versioned ? "[_ver]" : "0";
  std::string plain = key + "," + version;
  std::string joined = "t." + key + "," + (table_->Versioned ? "t." : "") + version;
  for (std::size_t field = 0; field < fields_.Size(); ++field) {
    if (settled_ && !wanted_[field]) continue;
    choice.PositionOf[field] = static_cast<int>(choice.Fields.size());
    choice.Fields.push_back(field);
    const std::string name = Bracketed(fields_[field].Name);
    plain += "," + name;
    joined += ",t." + name;
  }
  choice.OpenSql = "SELECT " + plain + " FROM " + table + condition_ + order_;
  choice.ListSql = connection_.ListSql(joined, *table_);
  choice.RangeSql =
      "SELECT " + plain + " FROM " + table + " WHERE " + key + " BETWEEN ?1 AND ?2 ORDER BY " + key;
  choice.RowSql = "SELECT " + plain + " FROM " + table + " WHERE " + key + "=?1";
  choice.RowSql += connection_.ForUpdate();
  choice.FindSql = "SELECT " + plain + " FROM " + table + " WHERE ";
  return choice;
}

}  // namespace kvi::jet
