// Keys in the search over a list of 100,000 parts, as a person types them and takes them back. No
// raw loop does the same; the floor is what a person does not notice.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <string>

#include "grids/RowSearch.h"
#include "grids/SprdSubs.h"
#include "platform/Screen.h"

namespace kvi::bench {
namespace {

constexpr double kUnnoticed = 0.05;  // seconds
constexpr int kParts = 100'000, kColumns = 21, kMostRows = 32'767;
constexpr const char* kTyped = "bearing 62 b-07";

class PartList : public Screen {
 public:
  PartList() : Screen("PartList") {
    constexpr const char* kNames[] = {"Ball bearing", "Hex cap screw", "Solenoid valve", "V-belt"};
    for (int row = 1; row <= kParts; ++row) {
      const std::string number = std::to_string(100000 + row);
      grid.SetText(row, 1, std::string(kNames[row % 4]) + " " + std::to_string(row % 7919));
      grid.SetText(row, 3, "B-0" + std::to_string(row % 10));
      grid.SetText(row, 4, number);
      grid.SetText(row, 5, "Sealed, with a snap ring, for the lines of the second hall");
      for (const int col : {17, 19, 21}) grid.SetText(row, col, "N-" + number);
    }
    search.Search.GotFocus();
  }
  Layout Arrange() override { return {}; }

  Spread grid{*this, "grid", kColumns, kParts};
  RowSearch search{
      *this, {grid, {1, 4, 5, 3, 17, 19, 21}, kMostRows, [this] { ShadeGridRows(grid, true); }}};
};

// The slowest key counts.
void SearchKeys(benchmark::State& state) {
  PartList list;
  const std::string typed = kTyped;
  double slowest = 0;
  std::size_t length = 0;
  for (auto round : state) {
    static_cast<void>(round);
    length = (length + 1) % (typed.size() + 1);
    const auto begun = std::chrono::steady_clock::now();
    list.search.Search.Text = typed.substr(0, length);
    const double time =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
    slowest = std::max(slowest, time);
    state.SetIterationTime(time);
  }
  state.counters["ours"] = slowest;
  state.counters["floor"] = kUnnoticed;
  state.counters["ratio"] = slowest / kUnnoticed;
  state.counters["target"] = 1;
}
BENCHMARK(SearchKeys)
    ->Name("A key in the search of 100,000 parts, floor 50 ms")
    ->UseManualTime()
    ->Iterations(64);

}  // namespace
}  // namespace kvi::bench
