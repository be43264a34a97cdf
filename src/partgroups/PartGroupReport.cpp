#include "partgroups/PartGroupReport.h"

#include <algorithm>

#include "base/Format.h"
#include "base/Number.h"
#include "base/Value.h"
#include "frame/Wording.h"
#include "grids/WrapText.h"

namespace kvi {

namespace {

// Inches.
constexpr double kLeft = 0.3, kRight = 7.5;
constexpr double kTop = 0.3, kBottomMargin = 0.5;
constexpr double kAroundRule = 0.05;
constexpr double kNameLeft = 0.9, kHowUsedLeft = 3.1;
constexpr double kGap = 0.06, kBetweenEntries = 0.03;
constexpr double kFontSize = 8;  // points

struct Heading {
  const char* text;
  double x;
};
// "Description" stands over the name.
constexpr Heading kHeadings[] = {
    {"Part #", kLeft},    {"Description", kNameLeft}, {"How Used", kHowUsedLeft}, {"Quantity", 4.1},
    {"Cost - Base", 4.7}, {"Extension", 5.6},         {"% of Total Cost", 6.5}};

struct WrappedColumn {
  double x, width;
  std::vector<std::string> lines;
};

void PrintLineAtLeft(Surface& page, const std::string& text) {
  page.CurrentX = kLeft;
  page.PrintLine(text);
}

void PrintTitle(Surface& page, const PartGroupReport& report) {
  page.FontName = "Arial";
  page.FontSize = 12;
  page.FontBold = true;
  page.CurrentY = kTop;
  PrintLineAtLeft(page, report.companyTitle);
  page.FontSize = 10;
  PrintLineAtLeft(page, "Menu Cost/Analysis Report");
  page.FontSize = kFontSize;
  page.FontBold = false;
  PrintLineAtLeft(page, Value(report.today).Text());
  // The label follows the name, with nothing behind it: so its users know the report.
  const double nameTop = page.CurrentY;
  page.PrintAt(kLeft, nameTop, report.groupName);
  page.CurrentY = nameTop + 0.3;
  PrintLineAtLeft(page, kPartGroup + ":");
}

void PrintHeadings(Surface& page) {
  page.FontBold = true;
  const double top = page.CurrentY, rule = top + page.TextHeight() + kAroundRule;
  for (const Heading& heading : kHeadings) page.PrintAt(heading.x, top, heading.text);
  page.FontBold = false;
  page.Line(kLeft, rule, kRight, rule);
  page.CurrentY = rule + kAroundRule;
}

void PrintToEndAt(Surface& page, double right, double y, const std::string& text) {
  page.PrintAt(right - page.TextWidth(text), y, text);
}

void PrintEntry(Surface& page, const PartGroupReportLine& line) {
  const double quantityLeft = 4.4 - std::max(0.3, page.TextWidth(line.quantity));
  WrappedColumn columns[] = {{kLeft, kNameLeft - kLeft - kGap, {}},
                             {kNameLeft, kHowUsedLeft - kNameLeft - kGap, {}},
                             {kHowUsedLeft, quantityLeft - kHowUsedLeft - kGap, {}}};
  const std::string* texts[] = {&line.number, &line.name, &line.howUsed};
  std::size_t height = 1;
  for (std::size_t at = 0; at < std::size(columns); ++at) {
    columns[at].lines = WrapText(page, *texts[at], columns[at].width);
    height = std::max(height, columns[at].lines.size());
  }
  const double lineHeight = page.TextHeight();
  const double rowHeight = lineHeight * static_cast<double>(height);
  if (page.CurrentY + rowHeight > page.PageHeight() - kBottomMargin) {
    page.NewPage();
    page.CurrentY = kTop;
    PrintHeadings(page);
  }
  const double top = page.CurrentY;
  for (const WrappedColumn& column : columns) {
    double y = top;
    for (const std::string& text : column.lines) {
      page.PrintAt(column.x, y, text);
      y += lineHeight;
    }
  }
  PrintToEndAt(page, 4.4, top, line.quantity);
  PrintToEndAt(page, 5.2, top, line.cost);
  PrintToEndAt(page, 6.0, top, Format(Val(line.quantity) * Val(line.cost), "###0.0000"));
  PrintToEndAt(page, 7.0, top, line.percent);
  page.CurrentY = top + rowHeight + kBetweenEntries;
}

}  // namespace

void PrintPartGroup(Surface& page, const PartGroupReport& report) {
  PrintTitle(page, report);
  PrintHeadings(page);
  for (const PartGroupReportLine& line : report.lines) PrintEntry(page, line);
  page.EndDoc();
}

}  // namespace kvi
