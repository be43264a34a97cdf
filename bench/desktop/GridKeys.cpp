// Keys in a list of 30,000 parts in its window: a letter that is looked for, until its row is
// painted. No raw loop does the same; the floor is what a person does not notice.
#include <QApplication>
#include <QKeyEvent>
#include <chrono>

#include "bench/Pair.h"
#include "bench/Stockroom.h"
#include "desktop/window/QtDesktop.h"
#include "desktop/window/ScreenWindow.h"
#include "items/KVI_InventorySummary.h"
#include "stock/KVI_UpdateInventory.h"

namespace kvi::bench {
namespace {

constexpr double kUnnoticed = 0.05;  // seconds
constexpr const char* kLetters = "zanbwlpsh";

// The program in windows that nobody sees.
class ShownDesk {
 public:
  ShownDesk() {
    desktop_.SetStack(app_.screens);
    app_.AccessString = "WWWW";
    app_.CurrentDatabase = jet::Database::Open(kDatabase, false);
  }
  ~ShownDesk() { desktop_.CloseAllWindows(); }

  template <class List>
  QWidget& GridOf() {
    auto& list = app_.Get<List>();
    app_.screens.Show(list);
    list.Spread1.GoToCell(1, 1);
    QCoreApplication::processEvents();
    QWidget& grid = *desktop_.WindowOf(list)->WidgetOf(list.Spread1);
    grid.setFocus();
    return grid;
  }

 private:
  char name_[6] = "bench";
  char* arguments_[2] = {name_, nullptr};
  int count_ = 1;
  bool platform_ = qputenv("QT_QPA_PLATFORM", "offscreen");
  QtDesktop desktop_{count_, arguments_};
  SystemClock clock_;
  SystemChance chance_;
  Application app_{{desktop_, clock_, chance_, kFolder, ""}};
};

double TimeOf(QWidget& grid, char letter) {
  const auto begun = std::chrono::steady_clock::now();
  QKeyEvent press(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QString(QChar(letter)));
  QCoreApplication::sendEvent(&grid, &press);
  QCoreApplication::processEvents();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
}

// The slowest letter counts.
template <class List>
void LookForLetters(benchmark::State& state) {
  ShownDesk desk;
  QWidget& grid = desk.GridOf<List>();
  double slowest = 0;
  const char* letter = kLetters;
  for (auto round : state) {
    static_cast<void>(round);
    const double time = TimeOf(grid, *letter);
    slowest = std::max(slowest, time);
    state.SetIterationTime(time);
    if (*++letter == '\0') letter = kLetters;
  }
  state.counters["ours"] = slowest;
  state.counters["floor"] = kUnnoticed;
  state.counters["ratio"] = slowest / kUnnoticed;
  state.counters["target"] = 1;
}
BENCHMARK(LookForLetters<KVI_InventorySummary>)
    ->Name("A letter in the list, floor 50 ms")
    ->UseManualTime()
    ->Iterations(27);
BENCHMARK(LookForLetters<KVI_UpdateInventory>)
    ->Name("A letter in a count, floor 50 ms")
    ->UseManualTime()
    ->Iterations(27);

}  // namespace
}  // namespace kvi::bench
