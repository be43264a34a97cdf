// Makes one report without a window: kvi-report FOLDER REPORT [options] --pdf FILE | --xlsx FILE |
// --print | --text.

#include <QtGlobal>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "ReportArguments.h"
#include "TextPages.h"
#include "base/RunTimeError.h"
#include "desktop/window/QtDesktop.h"
#include "frame/Application.h"
#include "frame/INI_SUBS.h"
#include "platform/IniFile.h"
#include "reports/RunReport.h"
#include "store/OpenInventoryDatabase.h"
#include "valuation/ItemValuation.h"

namespace {

using kvi::ReportArguments;

constexpr int kPathNotFound = 76, kPrinterError = 482, kNoRecord = 3021;

constexpr const char* kUsage =
    "Usage: kvi-report FOLDER REPORT [options] --pdf FILE | --xlsx FILE | --print | --text\n";
constexpr const char* kHelp =
    "Makes one report of the stockroom whose program folder is FOLDER, and changes nothing there.\n"
    "  --sort FIELD    primary sort: name, category, location or id\n"
    "  --then FIELD    secondary sort, the same\n"
    "  --like TEXT     only what begins with TEXT in the field of the primary sort\n"
    "  --font N        size of the rows, 5 to 9\n"
    "  --center N      the number of a profit center, else the one that was used last\n"
    "  --vendor NAME   for the reports by vendor; --slot N, which of a part's vendors (1 to 3)\n"
    "  --levels yes|no system levels on count sheets\n"
    "  --renew         works the valuations out anew first, and writes them\n"
    "  --sheet NAME, --first N, --qr\n"
    "                  of labels: the sheet, the place of the first one on it, a QR code as well\n"
    "Reports:\n";

// Nobody is there: a question of the reports has its answer among the options, anything else is
// told and fails the run.
class ReportDesktop : public kvi::QtDesktop {
 public:
  ReportDesktop(int& argc, char** argv, bool levels) : QtDesktop(argc, argv), levels_(levels) {}
  bool Failed() const { return failed_; }

 protected:
  kvi::Answer ShowBox(const kvi::Box& box) override {
    if (box.buttons == kvi::Buttons::YesNo) return levels_ ? kvi::Answer::Yes : kvi::Answer::No;
    std::fprintf(stderr, "kvi-report: %s\n", box.text.c_str());
    failed_ = true;
    return kvi::Answer::Ok;
  }

 private:
  const bool levels_;
  bool failed_ = false;
};

std::string Line(const char* box, const char* name, const char* caption) {
  char line[160];
  std::snprintf(line, sizeof line, "  %-4s %-24s%s\n", box, name, caption);
  return line;
}

std::string Help() {
  std::string help = kHelp;
  for (const kvi::ReportKind& kind : kvi::Reports())
    help += Line(kind.box, kind.name, kind.caption);
  help += Line("", "labels", "Bin labels, with --pdf or --print") + "Label sheets:\n";
  for (const kvi::LabelSheet& sheet : kvi::LabelSheets())
    help += Line("", sheet.name, sheet.caption);
  return help;
}

// Without the files of a program folder their reading would make new ones.
void RequireProgramFolder(const std::string& folder) {
  const kvi::IniFile own(folder + "/KVI.INI"), suite(folder + "/TARNWK.INI");
  if (!own.HasSection(kvi::kOwnSection) || !suite.HasSection(kvi::kSuiteSection))
    throw kvi::RunTimeError(kPathNotFound,
                            folder + " is no program folder: KVI.INI or TARNWK.INI is missing.");
}

void SetOutput(ReportDesktop& desktop, const ReportArguments& arguments) {
  if (arguments.output == ReportArguments::Output::Pdf) desktop.PrintInto(arguments.file);
  if (arguments.output == ReportArguments::Output::Printer && !kvi::QtDesktop::HasPrinter())
    throw kvi::RunTimeError(kPrinterError, "There is no printer on this machine.");
}

std::unique_ptr<kvi::PrintRun> NewRun(ReportDesktop& desktop, const ReportArguments& arguments) {
  SetOutput(desktop, arguments);
  if (arguments.output == ReportArguments::Output::Text)
    return std::make_unique<kvi::TextPages>(desktop.Measure());
  return desktop.NewPrintRun(arguments.kind->caption);
}

void MakeLabels(ReportDesktop& desktop, kvi::Application& app, const ReportArguments& arguments) {
  const auto labels = kvi::ReadBinLabels(app.CurrentDatabase, kvi::PartsQuery(arguments.with));
  if (labels.empty()) throw kvi::RunTimeError(kNoRecord, "No part has a label to print.");
  SetOutput(desktop, arguments);
  kvi::PrintBinLabels(desktop, labels, *arguments.labels);
}

void Make(ReportDesktop& desktop, ReportArguments arguments) {
  RequireProgramFolder(arguments.folder);
  kvi::SystemClock clock;
  kvi::SystemChance chance;
  kvi::Application app({desktop, clock, chance, arguments.folder, ""});
  kvi::ReadSettings(app);
  app.CurrentDatabase =
      kvi::jet::Database::Open(kvi::DatabasePathIn(app, app.DatabaseDirectory), false);
  kvi::ReportParameters& with = arguments.with;
  with.companyTitle = app.settings.CompanyName;
  with.today = clock.Now();
  with.profitCenter = arguments.center.value_or(app.CurrentProfitCenter);
  with.method = app.settings.Valuation;
  if (arguments.renew)
    kvi::UpdateAllValuations(app.CurrentDatabase, with.method, desktop, with.profitCenter);
  if (arguments.labels) return MakeLabels(desktop, app, arguments);
  const auto report = arguments.kind->make(with);
  if (desktop.Failed() || !report->Ask(desktop)) return;
  report->Open(app.CurrentDatabase);
  if (arguments.output == ReportArguments::Output::Workbook)
    return kvi::WriteWorkbook(arguments.file, arguments.kind->caption, report->Table());
  const auto run = NewRun(desktop, arguments);
  kvi::RunReport(*report, run->Paper(), kvi::kReportsScreen);
  run->Finish();
}

}  // namespace

int main(int argc, char** argv) {
  return kvi::RunConsoleProgram({"kvi-report", kUsage, Help()}, argc, argv, [&] {
    const ReportArguments arguments = kvi::ReadReportArguments(argc, argv);
    // A nightly job has no display, or one that nobody looks at, and no use for what the toolkit
    // has to say of that.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    ReportDesktop desktop(argc, argv, arguments.with.SystemLevelsAnswer);
    try {
      Make(desktop, arguments);
    } catch (const kvi::EndOfProcess&) {
      return kvi::kFailed;
    }
    return desktop.Failed() ? kvi::kFailed : 0;
  });
}
