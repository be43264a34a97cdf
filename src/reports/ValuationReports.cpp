#include "reports/ValuationReports.h"

#include "base/Format.h"
#include "base/Number.h"

namespace kvi {

namespace {

constexpr const char* kMoney = "$###,##0.00";
constexpr const char* kTotal = "$##,##0.00";
constexpr double kTotalEdge = 7.7, kCategoryEdge = 3;  // inches
constexpr SortWords kWords = {"Sorted by Name", "Sorted by Category", "Sorted by Location",
                              "Sorted by Inv ID#"};

std::string TitleOf(const ReportParameters& with) {
  const std::string title = "Valuation Report";
  if (!with.method) return title;
  if (*with.method == ValuationMethod::Weighted) return title + " (WEIGHTED)";
  return title + (*with.method == ValuationMethod::FIFO ? " (FIFO)" : " (LAST PRICE)");
}

std::string MethodLine(const ReportParameters& with) {
  if (!with.method) return "";
  if (*with.method == ValuationMethod::Weighted) return "Method: Weighted Average";
  return *with.method == ValuationMethod::FIFO ? "Method: FIFO" : "Method: Last Price";
}

std::vector<HeaderLine> PartHeader(const ReportParameters& with) {
  return {{TitleOf(with), true, 4, "CPHP = Cost Per How Purchased"},
          {Format(with.today, "m/d/yyyy"), false, 4.05, "CPHI = Cost Per How Inventoried"},
          {SortLine(with, kWords), true, 4.03, "QOH = Quantity on Hand"}};
}

std::vector<HeaderLine> CategoryHeader(const ReportParameters& with) {
  return {{"Valuation Report by Category"},
          {MethodLine(with)},
          {Format(with.today, "mm/dd/yyyy"), false},
          {"Sorted by Category"}};
}

std::string HowPurchasedAndInventoried(const ReportRow& row) {
  return row.Text("how_purchased") + " / " + row.Text("how_inv");
}
double CostPerInventoried(const ReportRow& row) {
  const double inventoried = row.Number("hi_qty");
  return inventoried != 0 ? row.Number("cost_per") / inventoried : 0;
}

void DrawPartsTotal(ReportPage& page, double total) {
  page.Paper().CurrentY += 0.01;
  page.Rule(7.2, 7.8);
  page.Paper().CurrentY += kBelowRule;
  const PlacedText text{UpTo(kTotalEdge), Format(total, kTotal)};
  page.PutLine({&text, 1});
  page.NextLine();
}

void DrawCategoriesTotal(ReportPage& page, double total) {
  page.Rule();
  page.Paper().CurrentY += kBelowRule;
  const PlacedText line[] = {{From(kReportLeft), "Grand Total:"},
                             {UpTo(kCategoryEdge), Format(total, kTotal)}};
  page.PutLine(line);
  page.NextLine();
}

std::string CategoriesQuery(const ReportParameters& with) {
  return "SELECT category, sum(valuation) as expr1 FROM I_Master where active = 'YES' and "
         "pcenter = " +
         Str(with.profitCenter) + " GROUP BY category";
}

}  // namespace

const ReportTable& ValuationByPart() {
  static const ReportTable table{
      .fields = {"name", "inv_id", "category", "location", "how_purchased", "how_inv", "hi_qty",
                 "cost_per", "qty_on_hand", "valuation"},
      .header = PartHeader,
      .headings = {{0, From(0.3), "Name"},
                   {0, From(1.5), "Inv. ID#"},
                   {0, From(2.4), "Category"},
                   {0, From(3.4), "Location"},
                   {0, From(4.4), "How Purch/Inv"},
                   {0, UpTo(5.8), "CPHP"},
                   {0, UpTo(6.5), "CPHI"},
                   {0, UpTo(7.1), "QOH"},
                   {0, UpTo(7.7), "Valuation"}},
      .cells = {{0, From(0.3), {"name"}, 18},
                {0, From(1.5), {"inv_id"}},
                {0, From(2.4), {"category"}, 15},
                {0, From(3.4), {"location"}, 15},
                {0, From(4.4), {.text = HowPurchasedAndInventoried}},
                {0, UpTo(5.8), {"cost_per", kMoney}},
                {0, UpTo(6.5), {.mask = kMoney, .figure = CostPerInventoried}},
                {0, UpTo(7.1), {"qty_on_hand", "#,##0.00"}},
                {0, UpTo(kTotalEdge), {"valuation", kMoney}}},
      .headingSize = 9,
      .rowSize = 9,
      .limit = 9.5,
      .rowStep = 0.05,
      .numberInHeader = true,
      .totalField = "valuation",
      .drawTotal = DrawPartsTotal};
  return table;
}

const ReportTable& ValuationByCategory() {
  static const ReportTable table{
      .query = CategoriesQuery,
      .fields = {"category", "expr1"},
      .header = CategoryHeader,
      .headings = {{0, From(kReportLeft), "Category"},
                   {0, UpTo(kCategoryEdge), "Valuation Summary for Category"}},
      .cells = {{0, From(kReportLeft), {"category"}}, {0, UpTo(kCategoryEdge), {"expr1", kTotal}}},
      .totalField = "expr1",
      .drawTotal = DrawCategoriesTotal};
  return table;
}

}  // namespace kvi
