#pragma once

#include <string>
#include <vector>

#include "base/Date.h"
#include "platform/Surface.h"

namespace kvi {

// A line as the builder shows it, typed quantity and all.
struct PartGroupReportLine {
  std::string number, name, howUsed, quantity, cost, percent;
};

struct PartGroupReport {
  std::string companyTitle;
  Date today;
  std::string groupName;
  std::vector<PartGroupReportLine> lines;
};

// Prints a group with its lines and ends the document. A text wider than its column goes on in the
// next line; each page has the columns' headings.
void PrintPartGroup(Surface& page, const PartGroupReport& report);

}  // namespace kvi
