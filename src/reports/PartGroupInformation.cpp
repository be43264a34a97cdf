#include "reports/PartGroupInformation.h"

#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"

namespace kvi {

namespace {

constexpr double kAboveRule = 0.1, kBehindRule = 0.05;  // inches
constexpr double kTitleSize = 10;                       // points

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
    rows_.push_back(
        {true,
         {groups.Text("name"), groups.Text("rec_id"), groups.Text("category"),
          Format(groups.Number("cost"), "$###,##0.00"), OnOneLine(groups.Text("notes"))}});
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
                     {lines.Text("iname"), lines.Text("inv_id"), lines.Text("desc"),
                      Format(lines.Number("qty"), "##0.00")}});
}

std::vector<PlacedText> PartGroupInformation::Placed(const Row& row) {
  const std::vector<std::string>& values = row.values;
  if (row.isGroup)
    return {{From(kReportLeft), values[0]},
            {From(2.1), values[1]},
            {From(2.75), values[2]},
            {From(4.4), values[3]},
            {From(5), values[4]}};
  return {{From(0.4), values[0]},
          {From(2.8), "ID#: " + values[1]},
          {From(4.2), "Desc: " + values[2]},
          {From(6.4), "Qty:"},
          {UpTo(7), values[3]}};
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
  page.PutLine(Placed(drawn));
  page.NextLine();
}

void PartGroupInformation::PassRow(ReportPage& page, int row) {
  const bool isGroup = rows_[static_cast<std::size_t>(row)].isGroup;
  if (isGroup) page.Paper().CurrentY += kAboveRule + kBehindRule;
  page.SetFont(with_.fontSize, isGroup);
  page.NextLine();
}

// A line stands behind what its group has, so that its row begins with blanks.
WorkbookTable PartGroupInformation::Table() {
  WorkbookTable table{.columns = {{"Name", 3000},
                                  {"Rec. ID#"},
                                  {"Category"},
                                  {"Cost"},
                                  {"Notes", 3000},
                                  {"Part", 3000},
                                  {"ID#"},
                                  {"Desc", 3000},
                                  {"Qty"}},
                      .rows = Rows()};
  table.cell = [this](int row, std::size_t column) -> WorkbookTable::Cell {
    constexpr std::size_t kFirstOfLine = 5, kCost = 3, kQuantity = 8;
    const Row& shown = rows_[static_cast<std::size_t>(row)];
    if (shown.isGroup != (column < kFirstOfLine)) return {};
    return {shown.values[shown.isGroup ? column : column - kFirstOfLine],
            column == kCost || column == kQuantity ? WorkbookTable::Kind::Figure
                                                   : WorkbookTable::Kind::Text};
  };
  return table;
}

void PartGroupInformation::DrawFoot(ReportPage& page, int number) {
  page.SetFont(with_.fontSize, false);
  DrawPageNumber(page, kPageNumberX, kReportTop, number);
}

}  // namespace kvi
