// The list of the parts to paper: all pages as a PDF, beside a painter that draws the same marks,
// and how long it takes until the number of pages is told.
#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QPrinter>
#include <chrono>

#include "bench/Pair.h"
#include "bench/Stockroom.h"
#include "desktop/look/Shades.h"
#include "desktop/printing/PrintService.h"
#include "desktop/printing/QtSurface.h"
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
constexpr const char* kPdf = "bench-print.pdf";

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

// A mark as a painter takes it.
struct RawMark {
  PageMark mark;
  QFont font;
  QString text;
  double ascent;
};

// The pages as marks, with a null one between two pages.
class MarkRecord : public MarkingSurface {
 public:
  explicit MarkRecord(TextMeasure& measure) : MarkingSurface(measure) {}
  double PageWidth() const override { return 8.5; }
  double PageHeight() const override { return 11; }
  void NewPage() override { marks.emplace_back(); }
  void EndDoc() override {}
  void KillDoc() override {}

  std::vector<std::optional<RawMark>> marks;

 protected:
  void Draw(const PageMark& mark) override {
    inUse_.Take(mark.font);
    marks.emplace_back(
        RawMark{mark, inUse_.Font(), QString::fromStdString(mark.text), inUse_.Metrics().ascent()});
  }

 private:
  FontInUse inUse_;
};

// What a program does that knows nothing but what to draw where.
double Floor(const std::vector<std::optional<RawMark>>& marks) {
  constexpr double kUnits = 7200;
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setPageSize(QPageSize(QPageSize::Letter));
  printer.setFullPage(true);
  printer.setOutputFileName(kPdf);
  QPainter painter(&printer);
  painter.scale(printer.resolution() / kUnits, printer.resolution() / kUnits);
  int pages = 1;
  for (const auto& raw : marks) {
    if (!raw) {
      printer.newPage();
      ++pages;
      continue;
    }
    const PageMark* mark = &raw->mark;
    const QPointF from = QPointF(mark->x, mark->y) * kUnits;
    const QPointF to = QPointF(mark->x2, mark->y2) * kUnits;
    if (mark->kind == PageMark::Kind::Text) {
      if (painter.font() != raw->font) painter.setFont(raw->font);
      painter.drawText(from + QPointF(0, raw->ascent), raw->text);
    } else if (mark->kind == PageMark::Kind::Line) {
      painter.setPen(QPen(Qt::black, 60));
      painter.drawLine(from, to);
    } else {
      painter.fillRect(QRectF(from, QSizeF(to.x(), to.y())), BackdropColor(mark->color, kBlack));
    }
  }
  painter.end();
  QFile::remove(kPdf);
  return pages;
}

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

class QtOffScreen {
 public:
  QtOffScreen() : platform_(qputenv("QT_QPA_PLATFORM", "offscreen")), app_(count_, arguments_) {}

 private:
  char name_[6] = "bench";
  char* arguments_[2] = {name_, nullptr};
  int count_ = 1;
  bool platform_;
  QApplication app_;
};

void PrintList(benchmark::State& state) {
  const QtOffScreen qt;
  ListToPrint list;
  PaperDesk desk;
  const auto marks = list.Marks();
  RunPair(state, {{[&] { return list.Print(desk); }}, {[&] { return Floor(marks); }}, 1.3});
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
