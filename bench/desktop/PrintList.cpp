// The list of the parts to paper: all pages as a PDF, beside a painter that draws the same marks,
// and how long it takes until the number of pages is told.
#include <QFile>
#include <chrono>

#include "bench/Pair.h"
#include "bench/Stockroom.h"
#include "bench/desktop/RawPaper.h"
#include "desktop/printing/PrintService.h"
#include "grids/GridPages.h"
#include "grids/PrintGrid.h"
#include "items/KVI_InventorySummary.h"
#include "platform/Progress.h"

namespace kvi::bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kParts = 15'941;  // of the sample's first profit center
constexpr int kPrints = 7;
constexpr double kToldWithin = 0.2;  // seconds

// Prints into a file, and keeps when the number of pages was told first.
class PaperDesk : public BenchDesktop {
 public:
  double told = 0;
  int pages = 0;

  void Begin() { begun_ = Clock::now(); }
  std::unique_ptr<Progress> NewProgress(const std::string&, bool) override {
    return std::make_unique<Watch>(*this);
  }
  std::unique_ptr<Surface> NewDocument(const std::string& jobName) override {
    return service_.NewDocument(jobName, "bench");
  }

 private:
  class Watch : public Progress {
   public:
    explicit Watch(PaperDesk& desk) : desk_(desk) {}
    bool Cancelled() const override { return false; }

   protected:
    void Told() override {
      if (Total() == 0 || Done() > 0) return;
      desk_.told = std::chrono::duration<double>(Clock::now() - desk_.begun_).count();
      desk_.pages = Total();
    }

   private:
    PaperDesk& desk_;
  };

  Clock::time_point begun_;
  PrintService service_{[](const std::string&) {},
                        [](const std::string& path) { QFile::remove(path.c_str()); }};
};

GridPrint Print() {
  return {.jobName = "Printing", .header = "/fn\"Arial\"/fz\"14\"/cList", .footer = "/cPage: /p"};
}

class ListToPrint {
 public:
  ListToPrint() : screen_(desk_.App().Get<KVI_InventorySummary>()) {
    desk_.App().CurrentDatabase = jet::Database::Open(kDatabase, false);
    desk_.App().screens.Load(screen_);
    screen_.LoadItemGrid();
    screen_.Spread1.SetMaxRows(kParts);
  }
  double Print(PaperDesk& desk) {
    desk.Begin();
    PrintGrid(desk, screen_.Spread1, bench::Print());
    return desk.pages;
  }
  std::vector<std::optional<RawMark>> Marks() {
    QtTextMeasure measure;
    MarkRecord record(measure);
    const GridPrint print = bench::Print();
    GridPages pages(record, screen_.Spread1, print);
    for (int page = 1; page <= pages.Count(); ++page) {
      if (page > 1) record.NewPage();
      pages.Draw(page);
    }
    return std::move(record.marks);
  }

 private:
  Desk desk_;
  KVI_InventorySummary& screen_;
};

void PrintList(benchmark::State& state) {
  const QtOffScreen qt;
  ListToPrint list;
  PaperDesk desk;
  const auto marks = list.Marks();
  RunPair(state, {{[&] { return list.Print(desk); }}, {[&] { return PrintRaw(marks); }}, 1.3});
}
BENCHMARK(PrintList)->Name("Print 15,941 parts")->UseManualTime()->Iterations(kPrints);

void TellPages(benchmark::State& state) {
  const QtOffScreen qt;
  ListToPrint list;
  PaperDesk desk;
  double told = 0;
  for (auto round : state) {
    static_cast<void>(round);
    list.Print(desk);
    state.SetIterationTime(desk.told);
    told = std::max(told, desk.told);
  }
  state.counters["ours"] = told;
  state.counters["floor"] = kToldWithin;
  state.counters["ratio"] = told / kToldWithin;
  state.counters["target"] = 1;
}
BENCHMARK(TellPages)->Name("Tell their pages, floor 0.2 s")->UseManualTime()->Iterations(kPrints);

}  // namespace
}  // namespace kvi::bench
