#pragma once

#include <string>
#include <vector>

#include "platform/MarkingSurface.h"
#include "reports/Report.h"

namespace kvi {

class Progress;

// The screen that prints. Whoever runs a report tells its own name, and only under this one pages
// end: under any other the report is one sheet of one header.
inline constexpr const char* kReportsScreen = "KVI_ReportsAnalysis";

// Draws an opened report. On paper each page is a document of its own; `progress` tells them, and
// its Cancel ends the run between two pages: then the result is false. On a sheet the drawing ends
// where the sheet does. A failure to print names its page.
bool RunReport(Report& report, Surface& output, const std::string& caller,
               Progress* progress = nullptr);

// The pages of an opened report as it would print, each drawn when it is asked for. Only where the
// pages begin is kept.
class ReportPages {
 public:
  ReportPages(Report& report, TextMeasure& measure);

  // As many as stand after the last; finds where each begins.
  int Count();
  // Whether there is a page of this number, from 1; finds no more than is needed.
  bool Has(int page);
  std::vector<PageMark> Draw(int page);

 private:
  Report& report_;
  TextMeasure& measure_;
  std::vector<int> starts_{0};  // the row that each page begins with
  bool foundAll_ = false;
};

}  // namespace kvi
