#include "items/DetailReport.h"

#include <vector>

#include "base/Format.h"
#include "base/Text.h"
#include "grids/WrapText.h"

namespace kvi {

namespace {

constexpr double kLeft = 0.3;  // inches
constexpr double kValueLeft = 2.1;
constexpr double kTop = 0.3;
constexpr double kBottomMargin = 0.5;
constexpr double kAroundRule = 0.08;

struct ReportLine {
  std::string label, value;
};

std::vector<ReportLine> ReportLines(const WorkingItem& item, const std::string& moneyMask) {
  const std::string unit = " (" + Trim(item.how_purchased.Text()) + "):";
  const auto money = [&](const TextBox& box) { return Format(Value(box.Text()), moneyMask); };
  return {{"Name:", item.iname.Text},
          {"Inv. ID#:", item.i_num.Text},
          {"Category:", item.category.Text},
          {"Location:", item.location.Text},
          {"Description:", item.desc.Text},
          {"How Purchased:", item.how_purchased.Text},
          {"How Inventoried:", item.how_inv.Text},
          {"How Used:", item.how_used.Text},
          {"Cost Per" + unit, money(item.hp_cost_per)},
          {"Quantity on Hand:", item.qty_on_hand.Text},
          {"Valuation:", money(item.valuation)},
          {"Re-Order Level" + unit + " ", item.re_order.Text},
          {"Par Level" + unit + " ", item.optimal.Text},
          {"Where to Re Order 1:", item.where1.Text},
          {"Where to Re Order 2:", item.where2.Text},
          {"Where to Re Order 3:", item.where3.Text},
          {"Notes:", item.notes.Text}};
}

void PrintHeading(Surface& page, const DetailReportFrame& frame) {
  page.FontName = "Arial";
  page.FontSize = 12;
  page.FontBold = true;
  page.CurrentX = kLeft;
  page.CurrentY = kTop;
  page.PrintLine(frame.companyTitle);
  page.FontSize = 10;
  page.CurrentX = kLeft;
  page.PrintLine("Detail Report");
  page.FontBold = false;
  page.CurrentX = kLeft;
  page.PrintLine(Value(frame.today).Text());
  page.CurrentY += kAroundRule;
  page.Line(0, page.CurrentY, page.PageWidth(), page.CurrentY);
  page.CurrentY += kAroundRule;
}

}  // namespace

void PrintDetailReport(Surface& page, const WorkingItem& item, const DetailReportFrame& frame) {
  PrintHeading(page, frame);
  const double width = page.PageWidth() - kValueLeft - kLeft;
  double y = page.CurrentY;
  for (const ReportLine& line : ReportLines(item, frame.moneyMask)) {
    std::string label = line.label;
    for (const std::string& value : WrapText(page, line.value, width)) {
      if (y + page.TextHeight() > page.PageHeight() - kBottomMargin) {
        page.NewPage();
        y = kTop;
      }
      page.FontBold = true;
      page.PrintAt(kLeft, y, label);
      page.FontBold = false;
      page.PrintAt(kValueLeft, y, value);
      y += page.TextHeight();
      label.clear();
    }
  }
  page.EndDoc();
}

}  // namespace kvi
