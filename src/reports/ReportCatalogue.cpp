#include "reports/ReportCatalogue.h"

#include "reports/CountSheets.h"
#include "reports/OrderReports.h"
#include "reports/PartGroupInformation.h"
#include "reports/PartInformation.h"
#include "reports/ValuationReports.h"

namespace kvi {

namespace {

template <const ReportTable& (*Table)()>
std::unique_ptr<Report> OfTable(ReportParameters with) {
  return std::make_unique<TableReport>(Table(), std::move(with));
}

template <class Kind>
std::unique_ptr<Report> OfKind(ReportParameters with) {
  return std::make_unique<Kind>(std::move(with));
}

constexpr ReportKind kReports[] = {
    {"r6", "valuation-by-part", "Valuation (by part)", false, OfTable<ValuationByPart>},
    {"r3", "count-sheet", "Count sheet (how inventoried)", false, OfTable<CountSheet>},
    {"r4", "count-sheet-both", "Count sheet (how inventoried and how purchased)", false,
     OfTable<CountSheetBothUnits>},
    {"r15", "count-sheet-vendor", "Count sheet (vendor detail)", false,
     OfTable<CountSheetVendorDetail>},
    {"r5", "reorder-by-part", "Reorder (by part)", false, OfTable<ReorderByPart>},
    {"r1", "part-information", "Part information", false, OfKind<PartInformation>},
    {"r2", "part-group-information", "Part group information", false, OfKind<PartGroupInformation>},
    {"r8", "par-sheet-by-part", "Par sheet (by part)", false, OfTable<ParSheetByPart>},
    {"r7", "valuation-by-category", "Valuation (by category)", false, OfTable<ValuationByCategory>},
    {"r10", "par-sheet-by-vendor", "Par sheet (by vendor)", true, OfTable<ParSheetByVendor>},
    {"r17", "reorder-by-vendor", "Reorder (by vendor)", true, OfTable<ReorderByVendor>}};

}  // namespace

std::span<const ReportKind> Reports() {
  return kReports;
}

}  // namespace kvi
