#pragma once

#include <string>

#include "base/Date.h"
#include "items/WorkingItem.h"
#include "platform/Surface.h"

namespace kvi {

struct DetailReportFrame {
  std::string companyTitle;
  Date today;
  std::string moneyMask;  // of cost and valuation; "" as they stand on the screen
};

// Prints what the screen shows of a part, a line a field, and ends the document. A value wider than
// the page goes on in the next line.
void PrintDetailReport(Surface& page, const WorkingItem& item, const DetailReportFrame& frame);

}  // namespace kvi
