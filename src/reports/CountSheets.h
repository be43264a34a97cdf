#pragma once

#include "reports/TableReport.h"

namespace kvi {

// The papers that people carry to the shelves, with a line to write each count on.
const ReportTable& CountSheet();              // in the inventoried unit
const ReportTable& CountSheetBothUnits();     // and in the purchased one, a line each
const ReportTable& CountSheetVendorDetail();  // with the first vendor and the units

}  // namespace kvi
