#include "reports/CountSheets.h"

#include "base/Format.h"

namespace kvi {

namespace {

constexpr const char* kQuantity = "#,##0.00";
constexpr double kLimit = 9.5;  // inches
constexpr double kRowSize = 8;  // points

// A sheet in the order of the part numbers tells no order.
constexpr SortWords kWords = {"Sorted by Name", "Sorted by Category", "Sorted by Location", ""};

std::string WritingLine(const ReportRow&) {
  return "    ___________";
}
std::string VendorWritingLine(const ReportRow&) {
  return "___________";
}

double ReOrderInventoried(const ReportRow& row) {
  return row.Number("re_order") * row.Number("hi_qty");
}
double OnHandInventoried(const ReportRow& row) {
  return row.Number("qty_on_hand") * row.Number("hi_qty");
}

std::vector<HeaderLine> Header(const ReportParameters& with) {
  return {{"Count Sheet"},
          {"Date Printed: " + Format(with.today, "m/d/yyyy"), false},
          {SortLine(with, kWords)}};
}

std::vector<HeaderLine> VendorHeader(const ReportParameters& with) {
  return {{"Count Sheet"}, {Format(with.today, "mm/dd/yyyy"), false}, {SortLine(with, kWords)}};
}

std::string FirstVendor(const ReportRow& row) {
  return row.Text("where1") + " (" + row.Text("w1_id") + ")";
}
std::string Ratio(const ReportRow& row) {
  return "1 " + row.Text("how_purchased") + " = " + Format(row.Number("hi_qty"), "#####0.00") +
         " " + row.Text("how_inv") + "(s)";
}
std::string OnHandPurchased(const ReportRow& row) {
  return row.Text("qty_on_hand") + " / " + row.Text("how_purchased");
}

}  // namespace

const ReportTable& CountSheet() {
  static const ReportTable table{
      .fields = {"name", "inv_id", "category", "location", "desc", "how_inv", "hi_qty", "re_order",
                 "qty_on_hand"},
      .header = Header,
      .headings = {{0, UpTo(6.4), "Re-"},
                   {0, UpTo(6.9), "Qty On", true},
                   {1, From(0.3), "Name"},
                   {1, From(1.5), "Inv. ID#"},
                   {1, From(2.41), "Category"},
                   {1, From(3.2), "Location"},
                   {1, From(4), "Description"},
                   {1, From(5.4), "How Inv."},
                   {1, UpTo(6.4), "Order"},
                   {1, UpTo(6.9), "Hand", true},
                   {1, From(7), "Physical Count"}},
      .cells = {{0, From(0.3), {"name"}, 22},
                {0, From(1.4), {"inv_id"}, 15},
                {0, From(2.41), {"category"}, 15},
                {0, From(3.2), {"location"}, 12},
                {0, From(4), {"desc"}, 15},
                {0, From(5.4), {"how_inv"}},
                {0, UpTo(6.4), {.mask = kQuantity, .figure = ReOrderInventoried}},
                {.at = UpTo(6.9),
                 .content = {.mask = kQuantity, .figure = OnHandInventoried},
                 .ofLevels = true},
                {0, From(6.9), {.text = WritingLine}}},
      .rowSize = kRowSize,
      .limit = kLimit,
      .asksLevels = true,
      .numberInHeader = true};
  return table;
}

const ReportTable& CountSheetBothUnits() {
  static const ReportTable table{
      .fields = {"name", "inv_id", "category", "location", "desc", "how_purchased", "how_inv",
                 "hi_qty", "re_order", "qty_on_hand"},
      .header = Header,
      .headings = {{0, From(0.3), "Name/"},
                   {0, From(5.2), "How Purch./"},
                   {0, UpTo(6.3), "Re-"},
                   {0, UpTo(6.9), "Qty On", true},
                   {1, From(0.3), "Description"},
                   {1, From(1.5), "Inv. ID#"},
                   {1, From(2.4), "Category"},
                   {1, From(3.4), "Location"},
                   {1, From(5.2), "How Inv."},
                   {1, UpTo(6.3), "Order"},
                   {1, UpTo(6.9), "Hand", true},
                   {1, From(7), "Physical Count"}},
      .cells = {{0, From(0.3), {"name"}, 15},
                {0, From(1.7), {"inv_id"}, 15},
                {0, From(2.4), {"category"}, 15},
                {0, From(3.4), {"location"}, 12},
                {0, From(5.2), {"how_purchased"}},
                {0, UpTo(6.4), {"re_order", kQuantity}},
                {.at = UpTo(6.9), .content = {"qty_on_hand", kQuantity}, .ofLevels = true},
                {0, From(6.9), {.text = WritingLine}},
                {1, From(0.3), {"desc"}, 15},
                {1, From(5.2), {"how_inv"}},
                {1, UpTo(6.4), {.mask = kQuantity, .figure = ReOrderInventoried}},
                {.line = 1,
                 .at = UpTo(6.9),
                 .content = {.mask = kQuantity, .figure = OnHandInventoried},
                 .ofLevels = true},
                {1, From(6.9), {.text = WritingLine}}},
      .lines = 2,
      .rowSize = kRowSize,
      .limit = kLimit,
      .asksLevels = true,
      .numberInHeader = true};
  return table;
}

// Its headings of the levels stay with the answer No.
const ReportTable& CountSheetVendorDetail() {
  static const ReportTable table{
      .fields = {"name", "category", "location", "where1", "w1_id", "how_purchased", "how_inv",
                 "hi_qty", "re_order", "qty_on_hand"},
      .header = VendorHeader,
      .headings = {{0, From(4.7), "Purchased/"},
                   {0, From(6), "Purchased/"},
                   {0, UpTo(7), "Re-"},
                   {1, From(0.3), "Name"},
                   {1, From(1.75), "Category"},
                   {1, From(2.5), "Location"},
                   {1, From(3.3), "Vendor 1 (ID#)"},
                   {1, From(4.7), "Inv. Ratio"},
                   {1, From(6), "On Hand"},
                   {1, UpTo(7), "Order"},
                   {1, From(7.1), "Physical Count"}},
      .cells = {{0, From(0.3), {"name"}, 25},
                {0, From(1.75), {"category"}},
                {0, From(2.5), {"location"}},
                {0, From(3.3), {.text = FirstVendor}},
                {0, From(4.7), {.text = Ratio}, 20},
                {.at = From(6), .content = {.text = OnHandPurchased}, .ofLevels = true},
                {0, UpTo(7), {"re_order", kQuantity}},
                {0, From(7.3), {.text = VendorWritingLine}}},
      .rowSize = kRowSize,
      .limit = kLimit,
      .testsFilter = true,
      .asksLevels = true,
      .numberInHeader = true};
  return table;
}

}  // namespace kvi
