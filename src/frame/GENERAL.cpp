#include "frame/GENERAL.h"

#include <fstream>
#include <optional>

#include "base/Format.h"
#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "platform/Controls.h"

namespace kvi {

std::string MakeTimeStamp(const Clock& clock) {
  const Date now = clock.Now();
  return Format(now, "yymmdd") + Format(now, "hhmmss");
}

bool FileHasContent(const std::string& path) {
  if (Trim(path).empty()) return false;
  std::ifstream file(path, std::ios::binary);
  return file.get() != std::ifstream::traits_type::eof();
}

std::string NextInvId(jet::Database& database) {
  jet::Recordset items = database.OpenRecordset("SELECT * FROM I_Master ORDER BY Val(Inv_ID);");
  if (items.Eof()) return "1";
  items.MoveLast();
  return Trim(Str(items.Number("inv_id") + 1));
}

double YieldOf(const Value& stored) {
  const double yield = ValOf(stored);
  return yield <= 0 ? kWholeYield : yield;
}

double GetItemYield(jet::Database& database, const std::string& inv_id) {
  const jet::Recordset items =
      database.OpenRecordset("SELECT * FROM I_Master WHERE Inv_ID = '" + inv_id + "' ;");
  return items.Eof() ? kWholeYield : YieldOf(items["Yield"]);
}

double GetItemCostPer(jet::Database& database, const std::string& inv_id) {
  try {
    const jet::Recordset items =
        database.OpenRecordset("SELECT * FROM I_Master WHERE inv_ID = '" + inv_id + "';");
    return items.Eof() ? 0 : items.Number("cost_per");
  } catch (const RunTimeError&) {
    return 0;
  }
}

void ListPartGroupsOfItem(jet::Database& database, ListBox& list, const std::string& inv_id) {
  if (Trim(inv_id).empty()) return;
  jet::Recordset groups = database.OpenRecordset(
      "SELECT R_Master.name, R_Master.Rec_ID, Inv_Recipe.Inv_ID "
      "FROM R_Master INNER JOIN Inv_Recipe "
      "ON R_Master.Rec_ID = Inv_Recipe.Rec_ID "
      "WHERE Inv_Recipe.Inv_ID = \"" +
      inv_id + "\" ORDER BY R_Master.name;");
  std::optional<std::string> last;
  for (; !groups.Eof(); groups.MoveNext()) {
    const std::string name = groups.Text("name");
    if (name != last) list.AddItem(name);
    last = name;
  }
}

}  // namespace kvi
