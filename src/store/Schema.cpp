#include "store/Schema.h"

#include <span>

namespace kvi {
namespace {

using jet::FieldDef;
using jet::FieldType;
using jet::TableDef;

FieldDef Text(const char* name, int size = 255) {
  return {name, FieldType::Text, size};
}
FieldDef Memo(const char* name) {
  return {name, FieldType::Memo};
}
FieldDef Number(const char* name) {
  return {name, FieldType::Double};
}
FieldDef Whole(const char* name) {
  return {name, FieldType::Integer};
}
FieldDef FromZero(FieldDef field) {
  field.Default = 0;
  return field;
}
FieldDef Day(const char* name) {
  return {name, FieldType::Date};
}
FieldDef Flag(const char* name) {
  return {name, FieldType::Boolean};
}

TableDef ItemTable() {
  return {"I_Master",
          {Text("inv_id", 15),
           Whole("pcenter"),
           Text("name"),
           Text("desc"),
           Text("category", 50),
           Text("location", 50),
           Text("account"),
           Text("how_purchased", 50),
           Text("how_inv", 50),
           Text("how_used", 50),
           Number("hi_qty"),
           Number("hu_qty"),
           Number("cost_per"),
           Number("qty_on_hand"),
           Number("re_order"),
           Number("optimal"),
           Number("valuation"),
           Text("active"),
           Text("where1"),
           Text("where2"),
           Text("where3"),
           Text("w1_id"),
           Text("w2_id"),
           Text("w3_id"),
           Number("Price1"),
           Number("Price2"),
           Number("Price3"),
           Whole("VendorOptNo"),
           Memo("notes"),
           Text("picpath"),
           Number("Yield"),
           Text("BarCodeScan", 30),
           Flag("CorpInventoryItem")},
          // The trimmed forms: a part is opened and stepped to by its number, and its name is
          // looked for at each save.
          {{{"inv_id"}, true},
           {{"trim(inv_id) COLLATE JET1"}},
           {{"trim(name) COLLATE JET1"}},
           {{"pcenter", "name"}}}};
}

std::vector<TableDef> PartGroupTables() {
  return {{"R_Master",
           {Text("rec_id"), FromZero(Whole("pcenter")), Text("name"), Text("category", 50),
            Memo("notes"), FromZero(Number("cost"))},
           {{{"rec_id"}, true}, {{"pcenter", "name"}}}},
          {"Inv_Recipe",
           {Text("rec_id"), FromZero(Whole("pcenter")), Text("inv_id"), Text("iname"),
            Text("how_used"), Number("qty"), Number("cost_per"), Text("desc"), Memo("notes")},
           {{{"rec_id", "inv_id"}}, {{"inv_id"}}}}};
}

std::vector<TableDef> HistoryTables() {
  return {{"Hist_Purchases",
           {Text("inv_id"), Day("p_date"), Number("p_qty"), Number("price"), Text("TRANS_NUM"),
            Whole("pcenter"), Number("o_qty"), Number("o_price")},
           {{{"inv_id", "p_date DESC"}}, {{"pcenter"}}}},
          {"HI_Header", {Day("F_Date"), Whole("pcenter")}, {{{"pcenter", "F_Date"}, true}}},
          {"Historical Inventory",
           {Day("F_Date"), Text("Inv_ID"), Whole("pcenter"), Number("Amount"), Number("Price")},
           {{{"pcenter", "F_Date"}}, {{"Inv_ID", "F_Date", "pcenter"}}}}};
}

std::vector<TableDef> OrderTables() {
  return {
      // The number is drawn as a single-precision value and not tested for uniqueness.
      {"PSO_Master",
       {{"pso_id", FieldType::Single}, Text("pso_name", 50), Day("pso_date"), Whole("pcenter")}},
      {"PSO_Detail",
       {{"pso_id", FieldType::Single},
        Text("pso_inv_id"),
        Number("pso_qty"),
        Number("pso_price"),
        Whole("pcenter")},
       {{{"pso_id", "trim(pso_inv_id) COLLATE JET1"}}, {{"pcenter", "pso_inv_id"}}}},
      {"Invoice",
       {Text("Vendor"), Text("Number"), Day("Date"), Day("date_due"), Number("amount"),
        Number("adj_amount")}}};
}

std::vector<TableDef> PeopleTables() {
  return {{"Vendor_Info",
           {Text("Name"), Text("Address"), Text("City"), Text("State"), Text("Zip"), Text("Fax"),
            Text("EmailAddress"), Text("Contact1"), Text("Phone1"), Text("Contact2"),
            Text("Phone2"), Text("VendorCode"), Text("VendorID"), Text("VendorURL"),
            Text("VendorUserName"), Text("Description")},
           {{{"Name"}}}},
          {"EmployeeDB",
           {Text("E_Code", 5), Text("E_Name"), Whole("E_SL"), Flag("ReadInv"), Flag("WriteInv"),
            Flag("ReadRecipe"), Flag("WriteRecipe"), Flag("ReadPSO"), Flag("WritePSO"),
            Flag("ReadSpeedy"), Flag("WriteSpeedy"), Flag("ReadHist"), Flag("WriteHist"),
            Flag("ReadPrint"), Flag("WritePrint"), Flag("ReadUtil"), Flag("WriteUtil")}},
          {"PCenter", {Whole("pcenter"), Text("name")}}};
}

constexpr const char* kDropLists[] = {"DD_category", "DD_inv_loc",  "DD_rg_cat",
                                      "DD_how_inv",  "DD_how_used", "DD_how_purchased"};

constexpr int kInventoryWidths[] = {3400, 1500, 1200, 1200, 2700, 1500, 1200, 1100, 1300, 900, 1100,
                                    900,  1100, 1100, 900,  2400, 1300, 2400, 1300, 2400, 1300};
constexpr int kRecipesWidths[] = {4500, 2400, 1600, 1500, 9000};
constexpr int kOrdersWidths[] = {3400, 1500, 1200, 1200, 2700, 1500, 1100,
                                 1200, 1200, 1300, 1100, 800,  800,  800};

struct WidthTable {
  const char* Name;
  std::span<const int> Widths;
};
constexpr WidthTable kWidthTables[] = {{"CW_Inventory", kInventoryWidths},
                                       {"CW_Recipes", kRecipesWidths},
                                       {"CW_Orders", kOrdersWidths}};

std::vector<TableDef> MakeSchema() {
  std::vector<TableDef> tables{ItemTable()};
  for (const auto& group : {PartGroupTables(), HistoryTables(), OrderTables(), PeopleTables()})
    tables.insert(tables.end(), group.begin(), group.end());
  for (const char* list : kDropLists) tables.push_back({list, {Text("Description")}, {}});
  for (const WidthTable& table : kWidthTables)
    tables.push_back({table.Name, {Whole("Ordinal"), Number("ColWidth")}, {}});
  return tables;
}

}  // namespace

const std::vector<TableDef>& Schema() {
  static const std::vector<TableDef> schema = MakeSchema();
  return schema;
}

void FillColumnWidths(jet::Database& database) {
  jet::WriteBatch batch(database);
  for (const WidthTable& table : kWidthTables) {
    auto rows = database.OpenRecordset("SELECT * FROM " + std::string(table.Name) + ";");
    if (!rows.Eof()) continue;
    int ordinal = 0;
    for (const int width : table.Widths) {
      rows.AddNew();
      rows.Set("Ordinal", ++ordinal);
      rows.Set("ColWidth", width);
      rows.Update();
    }
  }
  batch.Finish();
}

jet::Database CreateInventoryDatabase(const std::string& path) {
  auto database = jet::Database::Create(path, Schema());
  FillColumnWidths(database);
  return database;
}

}  // namespace kvi
