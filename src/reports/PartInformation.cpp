#include "reports/PartInformation.h"

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
constexpr int kNameLines = 5, kStockLines = 7, kVendorLines = 4;
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
};
struct Band {
  double labels, values, end;
};

std::string UnitText(const jet::Recordset& part, const char* outer, const char* inner,
                     const char* quantity) {
  const std::string from = part.Text(outer), to = part.Text(inner);
  return from + "/" + to + " (1 " + from + "=" + Format(part.Number(quantity), "#####0.00") + " " +
         to + "(s))";
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

void PartInformation::DrawRow(ReportPage& page, int row) {
  if (row < at_) {
    set_.MoveFirst();
    at_ = 0;
  }
  for (; at_ < row; ++at_) set_.MoveNext();
  const double top = page.Paper().CurrentY;
  const Pair names[kNameLines] = {{"Name:", set_.Text("name")},
                                  {"Inv. ID#:", set_.Text("inv_id")},
                                  {"Category:", set_.Text("category")},
                                  {"Location:", set_.Text("location")},
                                  {"Description:", set_.Text("desc")}};
  DrawBand(page, {kReportLeft, kNameValues, kStockLabels - 0.1}, names);
  const auto figure = [&](const char* field, const char* mask) {
    return Format(set_.Number(field), mask);
  };
  const Pair stock[kStockLines] = {
      {"How Purchased/How Inv:", UnitText(set_, "how_purchased", "how_inv", "hi_qty")},
      {"How Inv/How Used:", UnitText(set_, "how_inv", "how_used", "hu_qty")},
      {"Cost Per:", figure("cost_per", kMoney)},
      {"Qty on Hand:", figure("qty_on_hand", kQuantity)},
      {"Valuation:", figure("valuation", kMoney)},
      {"Re-Order Level: ", figure("re_order", kQuantity)},
      {"Par Level: ", figure("optimal", kQuantity)}};
  DrawBand(page, {kStockLabels, kStockValues, kRuleRight}, stock);
  page.Paper().CurrentY = top + kStockLines * page.LineHeight() + kBeforeVendors;
  DrawVendors(page);
  page.Paper().CurrentY += kVendorLines * page.LineHeight() + kBeforeRule;
  page.Rule();
  page.Paper().CurrentY += kBehindRule;
}

// Notes stand on one line, whatever lines they have.
void PartInformation::DrawVendors(ReportPage& page) {
  const std::string notes = Replace(Replace(set_.Text("notes"), "\r\n", " "), "\n", " ");
  const Pair vendors[] = {{"Vendor 1:", set_.Text("where1")},
                          {"Vendor 2:", set_.Text("where2")},
                          {"Vendor 3:", set_.Text("where3")}};
  const Pair numbers[] = {{"Vendor Inv. ID#:", set_.Text("w1_id")},
                          {"Vendor Inv. ID#:", set_.Text("w2_id")},
                          {"Vendor Inv. ID#:", set_.Text("w3_id")}};
  DrawBand(page, {kReportLeft, kVendorValues, kVendorIdLabels - 0.1}, vendors);
  DrawBand(page, {kVendorIdLabels, kVendorIdValues, kRuleRight}, numbers);
  const double top = page.Paper().CurrentY;
  page.Paper().CurrentY += (kVendorLines - 1) * page.LineHeight();
  DrawPair(page, {kReportLeft, kVendorValues, kRuleRight}, {"Notes:", notes});
  page.Paper().CurrentY = top;
}

void PartInformation::PassRow(ReportPage& page, int) {
  page.SetFont(kSize, false);
  page.Paper().CurrentY +=
      (kStockLines + kVendorLines) * page.LineHeight() + kBeforeVendors + kBeforeRule + kBehindRule;
}

}  // namespace kvi
