#include "items/DuplicateItem.h"

#include "frame/StrgSubs.h"

namespace kvi {

namespace {

constexpr const char* kCopiedFields[] = {
    "pcenter",  "category",      "location", "inv_id",  "name",     "desc",        "how_inv",
    "how_used", "how_purchased", "hu_qty",   "hi_qty",  "cost_per", "qty_on_hand", "valuation",
    "re_order", "where1",        "where2",   "where3",  "w1_id",    "w2_id",       "w3_id",
    "notes",    "optimal",       "active",   "account", "picpath"};

bool IsMarked(std::string_view field) {
  return field == "inv_id" || field == "name";
}

jet::Recordset OpenByNumber(jet::Database& database, const std::string& number) {
  return database.OpenRecordset("SELECT * FROM I_Master WHERE Inv_ID = '" + number + "';");
}

}  // namespace

bool DuplicateItem(jet::Database& database, const std::string& number) {
  const jet::Recordset original = OpenByNumber(database, number);
  jet::Recordset copy = OpenByNumber(database, number + kDuplicateMark);
  if (!copy.Eof()) return false;
  copy.AddNew();
  for (const char* field : kCopiedFields)
    copy.Set(field,
             IsMarked(field) ? Value(original.Text(field) + kDuplicateMark) : original[field]);
  copy.Update();
  return true;
}

}  // namespace kvi
