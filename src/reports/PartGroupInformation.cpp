#include "reports/PartGroupInformation.h"

#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"

namespace kvi {

namespace {

constexpr double kAboveRule = 0.1, kBehindRule = 0.05;  // inches
constexpr double kTitleSize = 10;                      // points

// Groups have no location.
constexpr SortWords kWords = {"Sorted by Name", "Sorted by Category", "Sorted by Name",
                              "Sorted by ID#"};

std::string OnOneLine(const std::string& text) {
  return Replace(Replace(text, "\r\n", " "), "\n", " ");
}

}  // namespace

// A filter looks into the category unless the order is by name, under the order by number too.
std::string PartGroupInformation::Query() const {
  const bool byName = with_.ReportPrimarySort == "name";
  const bool byCategory = with_.ReportPrimarySort == "category";
  const std::string center = "pcenter = " + Str(with_.profitCenter);
  std::string query = "SELECT * FROM R_Master ";
  if (with_.showsLike)
    query += std::string("WHERE ") + (byName ? "name" : "category") + " LIKE '" +
             with_.ReportFilterText + "*' and " + center;
  else
    query += "WHERE " + center;
  return query + (byCategory ? " ORDER BY category, name " : " ORDER BY name ");
}

void PartGroupInformation::Open(jet::Database& database) {
  rows_.clear();
  jet::Recordset groups =
      database.OpenSnapshot(Query(), {"name", "rec_id", "category", "cost", "notes"});
  for (; !groups.Eof(); groups.MoveNext()) {
    rows_.push_back({true,
                     {{From(kReportLeft), groups.Text("name")},
                      {From(2.1), groups.Text("rec_id")},
                      {From(2.75), groups.Text("category")},
                      {From(4.4), Format(groups.Number("cost"), "$###,##0.00")},
                      {From(5), OnOneLine(groups.Text("notes"))}}});
    AddLines(database, groups.Text("rec_id"));
  }
}

void PartGroupInformation::AddLines(jet::Database& database, const std::string& group) {
  jet::Recordset lines =
      database.OpenSnapshot("SELECT * FROM Inv_Recipe where Rec_ID = '" + group +
                                "' and pcenter = " + Str(with_.profitCenter) + " ORDER BY inv_id;",
                            {"iname", "inv_id", "desc", "qty"});
  for (; !lines.Eof(); lines.MoveNext())
    rows_.push_back({false,
                     {{From(0.4), lines.Text("iname")},
                      {From(2.8), "ID#: " + lines.Text("inv_id")},
                      {From(4.2), "Desc: " + lines.Text("desc")},
                      {From(6.4), "Qty:"},
                      {UpTo(7), Format(lines.Number("qty"), "##0.00")}}});
}

void PartGroupInformation::DrawHeader(ReportPage& page, int) {
  page.PrintCompany(with_.companyTitle);
  page.SetFont(kTitleSize, true);
  page.PrintLine("Part Group Summary");
  page.SetFont(kTitleSize, false);
  page.PrintLine(Format(with_.today, "mm/dd/yyyy"));
  page.SetFont(kTitleSize, true);
  page.PrintLine(SortLine(with_, kWords));
  page.SetFont(with_.fontSize, true);
  const PlacedText headings[] = {{From(kReportLeft), "Name"},
                                 {From(2.1), "Rec. ID#"},
                                 {From(2.75), "Category"},
                                 {From(4.4), "Cost"},
                                 {From(5), "Notes"}};
  page.PutLine(headings);
  page.NextLine();
}

void PartGroupInformation::DrawRow(ReportPage& page, int row) {
  const Row& drawn = rows_[static_cast<std::size_t>(row)];
  if (drawn.isGroup) {
    page.Paper().CurrentY += kAboveRule;
    page.Rule();
    page.Paper().CurrentY += kBehindRule;
  }
  page.SetFont(with_.fontSize, drawn.isGroup);
  page.PutLine(drawn.texts);
  page.NextLine();
}

void PartGroupInformation::PassRow(ReportPage& page, int row) {
  const bool isGroup = rows_[static_cast<std::size_t>(row)].isGroup;
  if (isGroup) page.Paper().CurrentY += kAboveRule + kBehindRule;
  page.SetFont(with_.fontSize, isGroup);
  page.NextLine();
}

void PartGroupInformation::DrawFoot(ReportPage& page, int number) {
  page.SetFont(with_.fontSize, false);
  DrawPageNumber(page, kPageNumberX, kReportTop, number);
}

}  // namespace kvi
