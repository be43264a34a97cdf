#include "reports/OrderReports.h"

#include "base/Format.h"
#include "base/Number.h"

namespace kvi {

namespace {

constexpr const char* kQuantity = "#,##0.00";
constexpr SortWords kWords = {"Sorted by Name", "Sorted by Category", "Sorted by Location",
                              "Sorted by ID#"};

double Missing(const ReportRow& row) {
  return row.Number("optimal") - row.Number("qty_on_hand");
}
std::string Suggested(const ReportRow& row) {
  const double missing = Missing(row);
  return missing > 0 ? Format(missing, kQuantity) : "";
}

double AboveReOrder(const ReportRow& row) {
  return row.Number("qty_on_hand") - row.Number("re_order");
}
bool IsAtReOrder(const ReportRow& row) {
  return AboveReOrder(row) <= 0;
}
// A part just at its level has the mark on the sheet by part, and on those by vendor it has not.
std::string MarkAtReOrder(const ReportRow& row) {
  return AboveReOrder(row) <= 0 ? "Below Re-Order" : "";
}
std::string MarkBelowReOrder(const ReportRow& row) {
  return AboveReOrder(row) < 0 ? "Below Re-Order" : "";
}

std::string DateOf(const ReportParameters& with) {
  return Format(with.today, "mm/dd/yyyy");
}
std::vector<HeaderLine> ReorderHeader(const ReportParameters& with) {
  return {{"Re-Order Report - All items on this report are equal to or below the re-order point."},
          {DateOf(with), false},
          {SortLine(with, kWords)}};
}
std::vector<HeaderLine> ParHeader(const ReportParameters& with) {
  return {{"Suggested Order - PAR Sheet"}, {DateOf(with), false}, {SortLine(with, kWords)}};
}
std::vector<HeaderLine> VendorHeader(const char* title, const ReportParameters& with) {
  return {{title},
          {DateOf(with), false},
          {"Items Displayed for Vendor " + Str(with.vendorSlot) + " Only"},
          {"Report for " + with.vendor}};
}
std::vector<HeaderLine> ReorderVendorHeader(const ReportParameters& with) {
  return VendorHeader("Items Below Re-Order by Vendor", with);
}
// A line stays free for the page number.
std::vector<HeaderLine> ParVendorHeader(const ReportParameters& with) {
  auto lines = VendorHeader("Suggested Order - PAR Sheet", with);
  lines.insert(lines.begin() + 1, HeaderLine{});
  return lines;
}

// The order is by the first vendor's number, whichever vendor it is about, and the profit center
// stands twice: as its users know it.
std::string VendorQuery(const ReportParameters& with) {
  const std::string center = " and pcenter = " + Str(with.profitCenter);
  std::string clause = "where active = 'YES'";
  if (with.vendorSlot > 0)
    clause += " and where" + Str(with.vendorSlot) + " LIKE '" + with.vendor + "'" + center + " ";
  return "SELECT * FROM I_Master " + clause + center + " ORDER BY w1_id, name ";
}
std::string VendorsNumber(const ReportRow& row) {
  constexpr const char* kNumbers[] = {"w1_id", "w1_id", "w2_id", "w3_id"};
  return row.Text(kNumbers[row.with.vendorSlot]);
}
std::vector<std::string> VendorFields() {
  return {"name",          "inv_id",  "w1_id",       "w2_id",   "w3_id",
          "how_purchased", "optimal", "qty_on_hand", "re_order"};
}

std::vector<ReportHeading> VendorHeadings(const char* howPurchased) {
  return {{0, UpTo(5.5), "Par"},
          {0, UpTo(6), "Qty. On"},
          {0, UpTo(6.5), "Re-"},
          {0, UpTo(7), "Sugg."},
          {1, From(0.3), "Name"},
          {1, From(2), "KVI Item ID#"},
          {1, From(2.8), "Vendor Item ID#"},
          {1, From(4), howPurchased},
          {1, UpTo(5.5), "Qty."},
          {1, UpTo(6), "Hand"},
          {1, UpTo(6.5), "Order"},
          {1, UpTo(7), "Order"}};
}
std::vector<ReportCell> VendorCells(double markX) {
  return {{0, From(0.3), {"name"}},
          {0, From(2), {"inv_id"}},
          {0, From(2.8), {.text = VendorsNumber}},
          {0, From(4), {"how_purchased"}},
          {0, UpTo(5.5), {"optimal", kQuantity}},
          {0, UpTo(6), {"qty_on_hand", kQuantity}},
          {0, UpTo(6.5), {"re_order", kQuantity}},
          {0, UpTo(7), {.text = Suggested}},
          {.at = From(markX), .content = {.text = MarkBelowReOrder}, .bold = true}};
}

}  // namespace

const ReportTable& ReorderByPart() {
  static const ReportTable table{.fields = {"name", "inv_id", "category", "location",
                                            "how_purchased", "optimal", "qty_on_hand", "re_order"},
                                 .header = ReorderHeader,
                                 .headings = {{0, From(3.9), "How"},
                                              {0, UpTo(5.7), "Par"},
                                              {0, UpTo(6.5), "Quantity"},
                                              {0, UpTo(7.1), "Re-Order"},
                                              {0, UpTo(7.9), "Suggested"},
                                              {1, From(0.3), "Name"},
                                              {1, From(1.4), "Inv. ID#"},
                                              {1, From(2), "Category"},
                                              {1, From(2.9), "Location"},
                                              {1, From(3.9), "Purchased"},
                                              {1, UpTo(5.7), "Level"},
                                              {1, UpTo(6.5), "On Hand"},
                                              {1, UpTo(7.1), "Level"},
                                              {1, UpTo(7.9), "Order"}},
                                 .cells = {{0, From(0.3), {"name"}, 15},
                                           {0, From(1.4), {"inv_id"}},
                                           {0, From(2), {"category"}, 10},
                                           {0, From(2.9), {"location"}, 14},
                                           {0, From(3.9), {"how_purchased"}},
                                           {0, UpTo(5.7), {"optimal", kQuantity}},
                                           {0, UpTo(6.5), {"qty_on_hand", kQuantity}},
                                           {0, UpTo(7.1), {"re_order", kQuantity}},
                                           {0, UpTo(7.9), {.mask = kQuantity, .figure = Missing}}},
                                 .aroundRule = 0.1,
                                 .draws = IsAtReOrder};
  return table;
}

const ReportTable& ReorderByVendor() {
  static const ReportTable table{.query = VendorQuery,
                                 .fields = VendorFields(),
                                 .header = ReorderVendorHeader,
                                 .headings = VendorHeadings("How Purchased"),
                                 .cells = VendorCells(7.05),
                                 .draws = IsAtReOrder};
  return table;
}

const ReportTable& ParSheetByPart() {
  static const ReportTable table{
      .fields = {"name", "inv_id", "desc", "how_purchased", "optimal", "qty_on_hand", "re_order"},
      .header = ParHeader,
      .headings = {{0, From(4.3), "How"},
                   {0, UpTo(5.5), "Par"},
                   {0, UpTo(6), "Qty. On"},
                   {0, UpTo(6.5), "Re-"},
                   {0, UpTo(7), "Sugg."},
                   {1, From(0.3), "Name"},
                   {1, From(1.9), "Inv. ID#"},
                   {1, From(2.9), "Description"},
                   {1, From(4.3), "Purchased"},
                   {1, UpTo(5.5), "Qty."},
                   {1, UpTo(6), "Hand"},
                   {1, UpTo(6.5), "Order"},
                   {1, UpTo(7), "Order"}},
      .cells = {{0, From(0.3), {"name"}, 18},
                {0, From(1.8), {"inv_id"}, 15},
                {0, From(2.9), {"desc"}, 20},
                {0, From(4.3), {"how_purchased"}},
                {0, UpTo(5.5), {"optimal", kQuantity}},
                {0, UpTo(6), {"qty_on_hand", kQuantity}},
                {0, UpTo(6.5), {"re_order", kQuantity}},
                {0, UpTo(7), {.text = Suggested}},
                {.at = From(7.1), .content = {.text = MarkAtReOrder}, .bold = true}},
      .testsFilter = true};
  return table;
}

// Its page number stands at the left edge of the paper, which is where its users look for it.
const ReportTable& ParSheetByVendor() {
  static const ReportTable table{.query = VendorQuery,
                                 .fields = VendorFields(),
                                 .header = ParVendorHeader,
                                 .headings = VendorHeadings("How Purch."),
                                 .cells = VendorCells(7.1),
                                 .numberX = 0.1};
  return table;
}

}  // namespace kvi
