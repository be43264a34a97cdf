#include "reports/RunReport.h"

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "platform/Progress.h"

namespace kvi {

namespace {

constexpr double kPaperWidth = 8.5, kPaperHeight = 11;  // inches
constexpr int kPrinterError = 482;

enum class Ink { Drawn, Measured };

// The walk over the rows: one page from a row on, or, without breaks, as much as the paper takes.
// The result is the row that the next page begins with, or the count of rows behind the last. A
// page that is full ends only where a further row is drawn, so no page has a heading alone.
int WalkPage(Report& report, ReportPage& page, int number, int from, bool breaks,
             Progress* progress = nullptr, Ink ink = Ink::Drawn) {
  report.DrawHeader(page, number);
  for (int row = from; row < report.Rows(); ++row) {
    if (!report.Draws(row)) continue;
    const double y = page.Paper().CurrentY;
    if (row > from && (breaks ? y > report.Limit() : y > page.Paper().PageHeight())) {
      if (breaks) return row;
      break;
    }
    if (ink == Ink::Drawn)
      report.DrawRow(page, row);
    else
      report.PassRow(page, row);
    if (progress != nullptr) progress->Done(row + 1);
  }
  return report.Rows();
}

// One page of paper, up to its end.
int PrintPage(Report& report, ReportPage& page, int number, int from, Progress* progress) {
  try {
    const int next = WalkPage(report, page, number, from, true, progress);
    if (next >= report.Rows()) report.DrawTotals(page);
    report.DrawFoot(page, number);
    page.Paper().EndDoc();
    return next;
  } catch (const RunTimeError& error) {
    if (error.Number != kPrinterError) throw;
    throw RunTimeError(kPrinterError, error.Description + " (page " + Str(number) + ")");
  }
}

// Nothing of what is drawn is kept.
class Blank : public MarkingSurface {
 public:
  using MarkingSurface::MarkingSurface;
  double PageWidth() const override { return kPaperWidth; }
  double PageHeight() const override { return kPaperHeight; }
  void NewPage() override {}
  void EndDoc() override {}
  void KillDoc() override {}

 protected:
  void DrawText(const std::string&, double) override {}
  void Draw(const PageMark&) override {}
};

}  // namespace

bool RunReport(Report& report, Surface& output, const std::string& caller, Progress* progress) {
  ReportPage page(output);
  if (caller != kReportsScreen) {
    WalkPage(report, page, 1, 0, false);
    report.DrawTotals(page);
    return true;
  }
  int next = 0, number = 1;
  do {
    if (progress != nullptr) {
      if (progress->Cancelled()) return false;
      progress->Begin("Page " + Str(number), report.Rows());
    }
    next = PrintPage(report, page, number++, next, progress);
  } while (next < report.Rows());
  return true;
}

ReportPages::ReportPages(Report& report, TextMeasure& measure)
    : report_(report), measure_(measure) {}

bool ReportPages::Has(int page) {
  Blank blank(measure_);
  ReportPage paper(blank);
  while (!foundAll_ && static_cast<int>(starts_.size()) < page) {
    const int number = static_cast<int>(starts_.size());
    const int next = WalkPage(report_, paper, number, starts_.back(), true, nullptr, Ink::Measured);
    foundAll_ = next >= report_.Rows();
    if (!foundAll_) starts_.push_back(next);
  }
  return page >= 1 && page <= static_cast<int>(starts_.size());
}

int ReportPages::Count() {
  Has(report_.Rows() + 1);
  return static_cast<int>(starts_.size());
}

std::vector<PageMark> ReportPages::Draw(int page) {
  if (!Has(page)) return {};
  SheetSurface sheet(measure_, kPaperWidth, kPaperHeight);
  ReportPage paper(sheet);
  const int from = starts_[static_cast<std::size_t>(page) - 1];
  if (WalkPage(report_, paper, page, from, true) >= report_.Rows()) report_.DrawTotals(paper);
  report_.DrawFoot(paper, page);
  return sheet.TakeMarks();
}

}  // namespace kvi
