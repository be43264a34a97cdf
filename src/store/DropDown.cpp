#include "store/DropDown.h"

#include "base/Text.h"
#include "frame/Application.h"
#include "store/SaveRecord.h"

namespace kvi {

namespace {

constexpr const char* kVendorTable = "VENDOR_INFO";

// The order in which the lists are read at the start.
constexpr const char* kListTables[] = {"DD_category", "DD_inv_loc", "DD_rg_cat", "DD_how_inv",
                                       "DD_how_used"};

}  // namespace

void FillDropDown(jet::Database& database, ComboBox& combo, const std::string& table) {
  combo.Clear();
  const std::string field = UCase(table) == kVendorTable ? "Name" : "Description";
  jet::Recordset values =
      database.OpenRecordset("SELECT DISTINCT " + field + " FROM " + table + " WHERE " + field +
                             " <> Null ORDER BY " + field + ";");
  for (; !values.Eof(); values.MoveNext()) combo.AddItem(Trim(values.Text(field)));
}

void LoadDropLists(Application& app) {
  const LoadStatements run(app.desktop);
  for (const char* table : kListTables)
    for (const auto& held : app.DropListCombos)
      if (held.table == table) run([&] { FillDropDown(app.CurrentDatabase, *held.combo, table); });
  FillVendorLists(app);
}

void FillVendorLists(Application& app) {
  const LoadStatements run(app.desktop);
  run([&] {
    std::vector<ComboBox*> combos;
    for (const auto& held : app.DropListCombos)
      if (UCase(held.table) == kVendorTable) combos.push_back(held.combo);
    for (ComboBox* combo : combos) combo->Clear();
    jet::Recordset vendors = app.CurrentDatabase.OpenRecordset("SELECT * FROM Vendor_Info;");
    for (; !vendors.Eof(); vendors.MoveNext())
      for (ComboBox* combo : combos) combo->AddItem(vendors.Text("name"));
  });
}

}  // namespace kvi
