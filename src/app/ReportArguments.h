#pragma once

#include <optional>
#include <string>

#include "ConsoleProgram.h"
#include "labels/BinLabels.h"
#include "reports/ReportCatalogue.h"

namespace kvi {

// What kvi-report was asked for.
struct ReportArguments {
  enum class Output { Pdf, Workbook, Printer, Text };

  std::string folder;
  const ReportKind* kind = nullptr;
  std::optional<LabelChoice> labels;  // instead of a report
  ReportParameters with;
  std::optional<int> center;
  bool renew = false;
  std::optional<Output> output;
  std::string file;  // of a PDF or workbook
};

// Raises BadArgument.
ReportArguments ReadReportArguments(int argc, char** argv);

}  // namespace kvi
