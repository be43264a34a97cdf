#include "sample/oldfiles/WriteDatabase.h"

#include <algorithm>

namespace kvi::jetfile {
namespace {

NewColumn ColumnOf(const jet::FieldDef& field) {
  switch (field.Type) {
    case jet::FieldType::Boolean:
      return {field.Name, ColumnType::Boolean};
    case jet::FieldType::Integer:
      return {field.Name, ColumnType::Integer};
    case jet::FieldType::Single:
      return {field.Name, ColumnType::Single};
    case jet::FieldType::Double:
      return {field.Name, ColumnType::Double};
    case jet::FieldType::Date:
      return {field.Name, ColumnType::Date};
    case jet::FieldType::Memo:
      return {field.Name, ColumnType::Memo};
    default:
      return {field.Name, ColumnType::Text, static_cast<unsigned>(field.Size)};
  }
}

}  // namespace

std::string JetFileOf(jet::Database& database, Version version,
                      const std::vector<std::string_view>& without) {
  JetFileWriter writer(version);
  for (const jet::TableDef& table : database.TableDefs()) {
    NewTable made{table.Name, {}};
    for (const jet::FieldDef& field : table.Fields)
      if (std::ranges::find(without, field.Name) == without.end())
        made.Columns.push_back(ColumnOf(field));
    writer.Begin(made);
    std::vector<Value> row(made.Columns.size());
    for (auto rows = database.OpenRecordset("SELECT * FROM [" + table.Name + "];"); !rows.Eof();
         rows.MoveNext()) {
      for (std::size_t i = 0; i < row.size(); ++i) row[i] = rows[made.Columns[i].Name];
      writer.Add(row);
    }
  }
  return writer.Finish();
}

}  // namespace kvi::jetfile
