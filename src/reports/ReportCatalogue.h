#pragma once

#include <memory>
#include <span>

#include "reports/Report.h"

namespace kvi {

// One of the reports that there are.
struct ReportKind {
  const char* box;   // of the reports screen
  const char* name;  // for whoever types it
  const char* caption;
  bool byVendor;
  std::unique_ptr<Report> (*make)(ReportParameters);
};

// In the order in which they run, which is not the one in which the screen lists them.
std::span<const ReportKind> Reports();

}  // namespace kvi
