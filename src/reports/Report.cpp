#include "reports/Report.h"

#include "base/Number.h"
#include "base/Text.h"

namespace kvi {

bool Report::HasFilterOrSays(Desktop& desktop) const {
  if (!with_.showsLike || !Trim(with_.ReportFilterText).empty()) return true;
  desktop.MsgBox({.text = "Invalid search term (spaces not permitted)"});
  return false;
}

std::string PartsQuery(const ReportParameters& with) {
  std::string clause = "where active = 'YES'";
  if (with.showsLike)
    clause += " and " + with.ReportPrimarySort + " LIKE '" + with.ReportFilterText + "*'";
  return "SELECT * FROM I_Master " + clause + " and pcenter = " + Str(with.profitCenter) +
         " ORDER BY " + with.ReportPrimarySort + ", " + with.ReportSecondarySort;
}

std::string SortLine(const ReportParameters& with, const SortWords& words) {
  if (with.ReportPrimarySort == "category") return words.category;
  if (with.ReportPrimarySort == "location") return words.location;
  return with.ReportPrimarySort == "inv_id" ? words.id : words.name;
}

void DrawPageNumber(ReportPage& page, double x, double y, int number) {
  page.Paper().Put(x, y, "Page: " + Str(number));
}

}  // namespace kvi
