#include "reports/RunReport.h"

#include <gtest/gtest.h>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "platform/Progress.h"
#include "support/ScriptedDesktop.h"

namespace kvi::test {
namespace {

// Rows one inch high from the top of the page, of which only some are drawn.
class Slabs : public Report {
 public:
  Slabs(int rows, std::string drawn = "") : Report({}), rows_(rows), drawn_(std::move(drawn)) {}

  void Open(jet::Database&) override {}
  WorkbookTable Table() override { return {}; }
  int Rows() const override { return rows_; }
  bool Draws(int row) override {
    return drawn_.empty() || drawn_.find(Str(row)) != std::string::npos;
  }
  double Limit() const override { return 3; }
  void DrawHeader(ReportPage& page, int number) override {
    page.SetFont(10, false);
    page.Paper().CurrentY = 0;
    page.Paper().Put(0, 0, "H" + Str(number));
  }
  void DrawRow(ReportPage& page, int row) override {
    page.Paper().Put(1, page.Paper().CurrentY, Str(row));
    PassRow(page, row);
  }
  void PassRow(ReportPage& page, int) override { page.Paper().CurrentY += 1; }
  void DrawTotals(ReportPage& page) override { page.Paper().Put(2, 0, "T"); }
  void DrawFoot(ReportPage& page, int number) override {
    page.Paper().Put(3, 0, "F" + Str(number));
  }

 private:
  const int rows_;
  const std::string drawn_;
};

std::string Texts(const std::vector<PageMark>& marks) {
  std::string all;
  for (const PageMark& mark : marks) all += mark.text + " ";
  return all;
}

// Prints, and looks that the pages of the whole preview are the same.
std::string Printed(Slabs report) {
  ScriptedDesktop desktop;
  const auto run = desktop.NewPrintRun("Slabs");
  RunReport(report, run->Paper(), kReportsScreen);
  std::string all;
  for (const auto& document : desktop.documents) {
    for (const auto& text : document->pages[0].texts) all += text.text + " ";
    all += "/ ";
  }
  ReportPages pages(report, desktop.Measure());
  std::string looked;
  for (int page = pages.Count(); page >= 1; --page)
    looked = Texts(pages.Draw(page)) + "/ " + looked;
  EXPECT_EQ(looked, all);
  EXPECT_FALSE(pages.Has(pages.Count() + 1));
  return all;
}

TEST(RunReportTest, APageEndsAboveTheLimitAndOnlyForAFurtherRow) {
  EXPECT_EQ(Printed(Slabs(0)), "H1 T F1 / ");
  EXPECT_EQ(Printed(Slabs(4)), "H1 0 1 2 3 T F1 / ") << "just at the limit it goes on";
  EXPECT_EQ(Printed(Slabs(5)), "H1 0 1 2 3 F1 / H2 4 T F2 / ");
  EXPECT_EQ(Printed(Slabs(9, "0234")), "H1 0 2 3 4 T F1 / ") << "no page of a heading alone";
  EXPECT_EQ(Printed(Slabs(9, "12378")), "H1 1 2 3 7 F1 / H2 8 T F2 / ");
}

// A printer that takes so many documents and no more.
class FullPrinter : public SheetSurface {
 public:
  FullPrinter(TextMeasure& measure, int takes) : SheetSurface(measure, 8.5, 11), left_(takes) {}
  void EndDoc() override {
    if (left_-- == 0) throw RunTimeError(482, "Printer error: the queue is full");
  }

 private:
  int left_;
};

TEST(RunReportTest, APrinterThatRefusesIsToldWithThePage) {
  EvenMeasure measure;
  FullPrinter printer(measure, 1);
  Slabs report(9);
  try {
    RunReport(report, printer, kReportsScreen);
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Description, "Printer error: the queue is full (page 2)");
  }
}

TEST(RunReportTest, ASheetHasOneHeaderAndEndsWithThePaper) {
  ScriptedDesktop desktop;
  Slabs report(9);
  SheetSurface sheet(desktop.Measure(), 8.5, 5.5);
  RunReport(report, sheet, "preview");
  EXPECT_EQ(Texts(sheet.TakeMarks()), "H1 0 1 2 3 4 5 T ");
}

TEST(RunReportTest, CancelEndsBetweenTwoPages) {
  ScriptedDesktop desktop;
  Slabs report(9);
  const auto run = desktop.NewPrintRun("Slabs");
  desktop.cancelAt = {"Page 2", 6};
  EXPECT_FALSE(
      RunReport(report, run->Paper(), kReportsScreen, desktop.NewProgress("Slabs", true).get()));
  ASSERT_EQ(desktop.documents.size(), 2U);
  EXPECT_TRUE(desktop.documents[1]->ended) << "the page that was begun is whole";
}

}  // namespace
}  // namespace kvi::test
