// Reports over 28,000 parts: the walk of a count sheet beside a plain walk with the same masks, its
// paper beside a painter that draws the same marks, and how soon the preview shows.
#include <QFile>
#include <chrono>

#include "base/Format.h"
#include "base/Text.h"
#include "bench/Pair.h"
#include "bench/RawFile.h"
#include "bench/Stockroom.h"
#include "bench/desktop/RawPaper.h"
#include "desktop/printing/PrintService.h"
#include "reports/ReportCatalogue.h"
#include "reports/RunReport.h"

namespace kvi::bench {
namespace {

constexpr int kRuns = 7;
constexpr int kFarPage = 400;
constexpr const char* kQuantity = "#,##0.00";

// The core's part alone: texts are measured as in a font of even letters, and nothing is kept.
class Even : public TextMeasure {
 public:
  double Width(const MarkFont& font, const std::string& text) override {
    return 0.5 * font.points / 72 * static_cast<double>(Len(text));
  }
  double Height(const MarkFont& font) override { return 1.15 * font.points / 72; }
};

class Unseen : public MarkingSurface {
 public:
  using MarkingSurface::MarkingSurface;
  double PageWidth() const override { return 8.5; }
  double PageHeight() const override { return 11; }
  void NewPage() override {}
  void EndDoc() override {}
  void KillDoc() override {}

 protected:
  void DrawText(const std::string&, double) override {}
  void Draw(const PageMark&) override {}
};

std::unique_ptr<Report> CountSheetReport() {
  for (const ReportKind& kind : Reports())
    if (kind.box == std::string("r3")) return kind.make({.companyTitle = "Bench"});
  return nullptr;
}

double Walk(jet::Database& database) {
  const auto report = CountSheetReport();
  report->Open(database);
  Even even;
  Unseen paper(even);
  RunReport(*report, paper, kReportsScreen);
  return report->Rows();
}

double RawWalk(sqlite3_stmt* parts) {
  int rows = 0;
  std::size_t letters = 0;
  const auto text = [&](int column, std::size_t cut) {
    letters += Left(TextOf(parts, column), cut).size();
  };
  while (Step(parts)) {
    text(0, 22);
    text(1, 15);
    text(2, 15);
    text(3, 12);
    text(4, 15);
    text(5, 255);
    const double inventoried = sqlite3_column_double(parts, 6);
    letters += Format(sqlite3_column_double(parts, 7) * inventoried, kQuantity).size();
    letters += Format(sqlite3_column_double(parts, 8) * inventoried, kQuantity).size();
    ++rows;
  }
  benchmark::DoNotOptimize(letters);
  return rows;
}

void WalkCountSheet(benchmark::State& state) {
  jet::Database database = jet::Database::Open(kDatabase, false);
  RawFile file(kDatabase);
  sqlite3_stmt* parts = file.Prepare(
      "SELECT name, inv_id, category, location, [desc], how_inv, hi_qty, re_order, qty_on_hand "
      "FROM I_Master WHERE active = 'YES' COLLATE NOCASE AND pcenter = 0 ORDER BY name, name");
  RunPair(state, {{[&] { return Walk(database); }}, {[&] { return RawWalk(parts); }}, 1.5});
}
BENCHMARK(WalkCountSheet)->Name("Walk a count sheet, all active parts")->Apply(AsPair);

double Print(jet::Database& database, PrintService& service) {
  const auto report = CountSheetReport();
  report->Open(database);
  const auto run = service.NewRun("bench");
  RunReport(*report, run->Paper(), kReportsScreen);
  run->Finish();
  return ReportPages(*report, service.Measure()).Count();
}

void PrintCountSheet(benchmark::State& state) {
  const QtOffScreen qt;
  jet::Database database = jet::Database::Open(kDatabase, false);
  PrintService service([](const std::string&) {}, [](const std::string&) {});
  service.PrintInto(kPdf);
  MarkRecord record(service.Measure());
  const auto report = CountSheetReport();
  report->Open(database);
  RunReport(*report, record, kReportsScreen);
  record.marks.pop_back();
  RunPair(
      state,
      {{[&] { return Print(database, service); }}, {[&] { return PrintRaw(record.marks); }}, 1.3});
  QFile::remove(kPdf);
}
BENCHMARK(PrintCountSheet)
    ->Name("Print a count sheet, all active parts")
    ->UseManualTime()
    ->Iterations(kRuns);

// The slowest of some runs beside what is soon enough.
void Within(benchmark::State& state, double seconds, const std::function<void()>& prepare,
            const std::function<void()>& run) {
  using Clock = std::chrono::steady_clock;
  double slowest = 0;
  for (auto round : state) {
    static_cast<void>(round);
    prepare();
    const auto begun = Clock::now();
    run();
    const double took = std::chrono::duration<double>(Clock::now() - begun).count();
    state.SetIterationTime(took);
    slowest = std::max(slowest, took);
  }
  state.counters["ours"] = slowest;
  state.counters["floor"] = seconds;
  state.counters["ratio"] = slowest / seconds;
  state.counters["target"] = 1;
}

void ShowPreview(benchmark::State& state) {
  const QtOffScreen qt;
  jet::Database database = jet::Database::Open(kDatabase, false);
  QtTextMeasure measure;
  Within(
      state, 0.15, [] {},
      [&] {
        const auto report = CountSheetReport();
        report->Open(database);
        SheetSurface sheet(measure, 8.5, 20000 / 1440.0);
        RunReport(*report, sheet, "preview");
      });
}
BENCHMARK(ShowPreview)->Name("Preview, floor 0.15 s")->UseManualTime()->Iterations(kRuns);

void GoToFarPage(benchmark::State& state) {
  const QtOffScreen qt;
  jet::Database database = jet::Database::Open(kDatabase, false);
  QtTextMeasure measure;
  const auto report = CountSheetReport();
  report->Open(database);
  std::optional<ReportPages> pages;
  Within(
      state, 0.1, [&] { pages.emplace(*report, measure); }, [&] { pages->Draw(kFarPage); });
}
BENCHMARK(GoToFarPage)->Name("Page 400, floor 0.1 s")->UseManualTime()->Iterations(kRuns);

}  // namespace
}  // namespace kvi::bench
