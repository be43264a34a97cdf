#include "store/UpgradeSchema.h"

#include <map>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"

namespace kvi {

namespace {

constexpr int kFieldDefinedAlready = 3191;
constexpr int kInvalidCall = 5;

jet::FieldType TypeOf(const std::string& name) {
  static const std::map<std::string, jet::FieldType> types = {
      {"TEXT", jet::FieldType::Text},     {"INTEGER", jet::FieldType::Integer},
      {"SINGLE", jet::FieldType::Single}, {"DOUBLE", jet::FieldType::Double},
      {"MEMO", jet::FieldType::Memo},     {"BOOLEAN", jet::FieldType::Boolean},
      {"DATE", jet::FieldType::Date}};
  const auto found = types.find(UCase(name));
  if (found == types.end()) throw RunTimeError(kInvalidCall);
  return found->second;
}

void ShowError(Desktop& desktop, const RunTimeError& error) {
  desktop.MsgBox({.text = Str(error.Number) + " " + error.Description, .icon = Icon::Error});
}

struct AddedField {
  const char *table, *field, *type;
  int size;
};

constexpr AddedField kAddedFields[] = {
    {"I_Master", "BarCodeScan", "TEXT", 30},
    {"I_Master", "CorpInventoryItem", "BOOLEAN", 0},
};

}  // namespace

void UpgradeSchema(jet::Database& database, Desktop& desktop) {
  for (const AddedField& added : kAddedFields) {
    try {
      if (!FieldExists(database, added.table, added.field))
        AddField(database, desktop, added.table, added.field, added.type, added.size);
    } catch (const RunTimeError& error) {
      ShowError(desktop, error);
    }
  }
}

bool FieldExists(jet::Database& database, const std::string& table, const std::string& field) {
  // (The fields are wanted, not the keys of all rows.)
  const jet::Recordset rows = database.OpenRecordset("SELECT * FROM [" + table + "] WHERE 0 = 1;");
  for (const jet::FieldDef& standing : rows.Fields())
    if (UCase(standing.Name) == UCase(field)) return true;
  return false;
}

bool AddField(jet::Database& database, Desktop& desktop, const std::string& table,
              const std::string& field, const std::string& type, int size) {
  try {
    jet::FieldDef added{.Name = field, .Type = TypeOf(type)};
    if (added.Type == jet::FieldType::Text) added.Size = size;
    database.AppendField(table, added);
    return true;
  } catch (const RunTimeError& error) {
    if (error.Number == kFieldDefinedAlready) return true;
    ShowError(desktop, error);
    return false;
  }
}

}  // namespace kvi
