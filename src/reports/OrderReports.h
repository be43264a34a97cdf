#pragma once

#include "reports/TableReport.h"

namespace kvi {

// What tells what to buy, in the purchased unit.
const ReportTable& ReorderByPart();
const ReportTable& ReorderByVendor();
const ReportTable& ParSheetByPart();
const ReportTable& ParSheetByVendor();

}  // namespace kvi
