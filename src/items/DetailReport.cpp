#include "items/DetailReport.h"

#include <sstream>
#include <vector>

#include "base/Format.h"
#include "base/Text.h"

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

// The lines of one paragraph that fit in a width, broken at blanks; one at least.
void AddWrapped(const Surface& page, const std::string& paragraph, double width,
                std::vector<std::string>& lines) {
  std::istringstream words(paragraph);
  std::string line;
  for (std::string word; std::getline(words, word, ' ');) {
    std::string longer = line;
    if (!line.empty()) longer += ' ';
    longer += word;
    if (line.empty() || page.TextWidth(longer) <= width) {
      line = longer;
    } else {
      lines.push_back(line);
      line = word;
    }
  }
  lines.push_back(line);
}

std::vector<std::string> Wrapped(const Surface& page, const std::string& text, double width) {
  std::vector<std::string> lines;
  std::istringstream paragraphs(Replace(text, "\r\n", "\n"));
  for (std::string paragraph; std::getline(paragraphs, paragraph);)
    AddWrapped(page, paragraph, width, lines);
  if (lines.empty()) lines.emplace_back();
  return lines;
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
    for (const std::string& value : Wrapped(page, line.value, width)) {
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
