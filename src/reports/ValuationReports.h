#pragma once

#include "reports/TableReport.h"

namespace kvi {

// What the stock is worth, by the figures that the parts hold; they are not worked out here.
const ReportTable& ValuationByPart();
const ReportTable& ValuationByCategory();

}  // namespace kvi
