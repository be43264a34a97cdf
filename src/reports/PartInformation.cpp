#include "reports/PartInformation.h"

#include <utility>
#include <vector>

#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"

namespace kvi {

namespace {

// Inches. The second band stands beside the first, the third below both.
constexpr double kNameValues = 1.15;
constexpr double kStockLabels = 3.7, kStockValues = 5.4;
constexpr double kVendorValues = 1.15, kVendorIdLabels = 4.2, kVendorIdValues = 5.4;
constexpr double kBeforeVendors = 0.1, kBeforeRule = 0.05, kBehindRule = 0.1;
constexpr int kStockLines = 7, kVendorLines = 4;
constexpr double kNumberX = 6.9;
constexpr double kSize = 8, kTitleSize = 10;  // points
constexpr const char* kMoney = "$##,##0.00";
constexpr const char* kQuantity = "##,##0.00";

constexpr SortWords kWords = {"Sorted by Name", "Sorted by Category", "Sorted by Location",
                              "Sorted by ID#"};

// A label with its value, and where the value's room ends.
struct Pair {
  const char* label;
  std::string value;
  bool isFigure = false;
};
using Pairs = std::vector<Pair>;
struct Band {
  double labels, values, end;
};

std::string UnitText(const jet::Recordset& part, const char* outer, const char* inner,
                     const char* quantity) {
  const std::string from = part.Text(outer), to = part.Text(inner);
  return from + "/" + to + " (1 " + from + "=" + Format(part.Number(quantity), "#####0.00") + " " +
         to + "(s))";
}

Pairs Names(const jet::Recordset& part) {
  return {{"Name:", part.Text("name")},
          {"Inv. ID#:", part.Text("inv_id")},
          {"Category:", part.Text("category")},
          {"Location:", part.Text("location")},
          {"Description:", part.Text("desc")}};
}

Pairs Stock(const jet::Recordset& part) {
  const auto figure = [&](const char* field, const char* mask) {
    return Format(part.Number(field), mask);
  };
  return {{"How Purchased/How Inv:", UnitText(part, "how_purchased", "how_inv", "hi_qty")},
          {"How Inv/How Used:", UnitText(part, "how_inv", "how_used", "hu_qty")},
          {"Cost Per:", figure("cost_per", kMoney), true},
          {"Qty on Hand:", figure("qty_on_hand", kQuantity), true},
          {"Valuation:", figure("valuation", kMoney), true},
          {"Re-Order Level: ", figure("re_order", kQuantity), true},
          {"Par Level: ", figure("optimal", kQuantity), true}};
}

Pairs Vendors(const jet::Recordset& part) {
  return {{"Vendor 1:", part.Text("where1")},
          {"Vendor 2:", part.Text("where2")},
          {"Vendor 3:", part.Text("where3")}};
}

Pairs VendorNumbers(const jet::Recordset& part) {
  return {{"Vendor Inv. ID#:", part.Text("w1_id")},
          {"Vendor Inv. ID#:", part.Text("w2_id")},
          {"Vendor Inv. ID#:", part.Text("w3_id")}};
}

// On one line, whatever lines they have.
Pair Notes(const jet::Recordset& part) {
  return {"Notes:", Replace(Replace(part.Text("notes"), "\r\n", " "), "\n", " ")};
}

// A value keeps to its band: what is longer is cut.
void DrawPair(ReportPage& page, const Band& band, const Pair& pair) {
  page.SetFont(kSize, true);
  page.Paper().Put(band.labels, page.Paper().CurrentY, pair.label);
  page.SetFont(kSize, false);
  page.Paper().Put(band.values, page.Paper().CurrentY,
                   page.Fitting(pair.value, band.end - band.values));
}

// Down from the vertical position, which stays.
void DrawBand(ReportPage& page, const Band& band, std::span<const Pair> pairs) {
  const double top = page.Paper().CurrentY;
  for (const Pair& pair : pairs) {
    DrawPair(page, band, pair);
    page.NextLine();
  }
  page.Paper().CurrentY = top;
}

}  // namespace

void PartInformation::Open(jet::Database& database) {
  set_ = database.OpenSnapshot(
      PartsQuery(with_),
      {"name",        "inv_id",   "category", "location", "desc",     "how_purchased",
       "how_inv",     "how_used", "hi_qty",   "hu_qty",   "cost_per", "valuation",
       "qty_on_hand", "re_order", "optimal",  "where1",   "where2",   "where3",
       "w1_id",       "w2_id",    "w3_id",    "notes"});
  rows_ = set_.RecordCount();
  at_ = 0;
}

void PartInformation::DrawHeader(ReportPage& page, int number) {
  page.PrintCompany(with_.companyTitle);
  page.SetFont(kTitleSize, true);
  DrawPageNumber(page, kNumberX, kReportTop, number);
  page.PrintLine("Information Report");
  page.SetFont(kTitleSize, false);
  page.PrintLine(Format(with_.today, "mm/dd/yyyy"));
  page.SetFont(kTitleSize, true);
  page.PrintLine(SortLine(with_, kWords));
  page.SetFont(kSize, false);
  page.Rule();
  page.Paper().CurrentY += kBehindRule;
}

void PartInformation::GoTo(int row) {
  if (row < at_) {
    set_.MoveFirst();
    at_ = 0;
  }
  for (; at_ < row; ++at_) set_.MoveNext();
}

void PartInformation::DrawRow(ReportPage& page, int row) {
  GoTo(row);
  const double top = page.Paper().CurrentY;
  DrawBand(page, {kReportLeft, kNameValues, kStockLabels - 0.1}, Names(set_));
  DrawBand(page, {kStockLabels, kStockValues, kRuleRight}, Stock(set_));
  page.Paper().CurrentY = top + kStockLines * page.LineHeight() + kBeforeVendors;
  DrawVendors(page);
  page.Paper().CurrentY += kVendorLines * page.LineHeight() + kBeforeRule;
  page.Rule();
  page.Paper().CurrentY += kBehindRule;
}

void PartInformation::DrawVendors(ReportPage& page) {
  DrawBand(page, {kReportLeft, kVendorValues, kVendorIdLabels - 0.1}, Vendors(set_));
  DrawBand(page, {kVendorIdLabels, kVendorIdValues, kRuleRight}, VendorNumbers(set_));
  const double top = page.Paper().CurrentY;
  page.Paper().CurrentY += (kVendorLines - 1) * page.LineHeight();
  DrawPair(page, {kReportLeft, kVendorValues, kRuleRight}, Notes(set_));
  page.Paper().CurrentY = top;
}

void PartInformation::PassRow(ReportPage& page, int) {
  page.SetFont(kSize, false);
  page.Paper().CurrentY +=
      (kStockLines + kVendorLines) * page.LineHeight() + kBeforeVendors + kBeforeRule + kBehindRule;
}

WorkbookTable PartInformation::Table() {
  const auto all = [this] {
    Pairs pairs;
    for (const Pairs& band : {Names(set_), Stock(set_), Vendors(set_), VendorNumbers(set_)})
      pairs.insert(pairs.end(), band.begin(), band.end());
    pairs.push_back(Notes(set_));
    return pairs;
  };
  WorkbookTable table{.rows = rows_};
  if (rows_ == 0) return table;
  GoTo(0);
  for (const Pair& pair : all()) table.columns.push_back({Replace(Trim(pair.label), ":", "")});
  table.cell = [this, all, pairs = all(), shown = 0](int row, std::size_t column) mutable {
    if (row != std::exchange(shown, row)) {
      GoTo(row);
      pairs = all();
    }
    const Pair& pair = pairs[column];
    return WorkbookTable::Cell{
        pair.value, pair.isFigure ? WorkbookTable::Kind::Figure : WorkbookTable::Kind::Text};
  };
  return table;
}

}  // namespace kvi
