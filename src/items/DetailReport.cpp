#include "items/DetailReport.h"

#include <algorithm>
#include <vector>

#include "base/Format.h"
#include "base/Text.h"
#include "grids/TextRuler.h"
#include "grids/WrapText.h"

namespace kvi {

namespace {

constexpr double kLeft = 0.3;  // inches
constexpr double kValueLeft = 2.1;
constexpr double kTop = 0.3;
constexpr double kBottomMargin = 0.5;
constexpr double kAroundRule = 0.08;
constexpr double kLabelGap = 0.08;
constexpr double kSmallestLabel = 6;  // points

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

// A label keeps to its place: one with a long unit is printed smaller, and what is too long still
// ends in an ellipsis.
void PrintLabel(Surface& page, double y, const std::string& label) {
  constexpr double kRoom = kValueLeft - kLeft - kLabelGap;
  const double usual = page.FontSize, height = page.TextHeight();
  page.FontBold = true;
  const double width = page.TextWidth(Trim(label));
  if (width <= kRoom) {
    page.Put(kLeft, y, label);
  } else {
    page.FontSize = std::max(kSmallestLabel, 0.99 * usual * kRoom / width);
    const TextRuler ruler(page, page.FontSize, true);
    page.Put(kLeft, y + height - page.TextHeight(), ruler.Shortened(Trim(label), kRoom));
    page.FontSize = usual;
  }
  page.FontBold = false;
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
      PrintLabel(page, y, label);
      page.PrintAt(kValueLeft, y, value);
      y += page.TextHeight();
      label.clear();
    }
  }
  page.EndDoc();
}

}  // namespace kvi
