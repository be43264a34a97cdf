#include "bench/Pair.h"

#include <algorithm>
#include <chrono>
#include <vector>

namespace kvi::bench {
namespace {

constexpr int kRounds = 61;

// One run of a side, in seconds.
double Time(const Side& side, double& result) {
  using Clock = std::chrono::steady_clock;
  if (side.prepare) side.prepare();
  const Clock::time_point start = Clock::now();
  result = side.run();
  return std::chrono::duration<double>(Clock::now() - start).count();
}

double Median(std::vector<double> numbers) {
  const auto middle = numbers.begin() + static_cast<std::ptrdiff_t>(numbers.size() / 2);
  std::nth_element(numbers.begin(), middle, numbers.end());
  return *middle;
}

}  // namespace

void RunPair(benchmark::State& state, const Pair& pair) {
  double oursResult = 0, floorResult = 0;
  Time(pair.ours, oursResult);
  Time(pair.floor, floorResult);
  if (oursResult != floorResult) return state.SkipWithError("the sides do not do the same");

  std::vector<double> ours, floor, ratios;
  for (auto round : state) {
    static_cast<void>(round);
    // The side that goes first changes, so that neither always finds what the other left behind.
    const bool oursFirst = ratios.size() % 2 == 0;
    if (oursFirst) ours.push_back(Time(pair.ours, oursResult));
    floor.push_back(Time(pair.floor, floorResult));
    if (!oursFirst) ours.push_back(Time(pair.ours, oursResult));
    ratios.push_back(ours.back() / floor.back());
    state.SetIterationTime(ours.back());
  }
  state.counters["ours"] = Median(ours);
  state.counters["floor"] = Median(floor);
  // The two runs of a round stand the same weather, so their ratio is steadier than the medians'.
  state.counters["ratio"] = Median(ratios);
  state.counters["target"] = pair.target;
}

void AsPair(benchmark::internal::Benchmark* figure) {
  figure->UseManualTime()->Iterations(kRounds);
}

}  // namespace kvi::bench
