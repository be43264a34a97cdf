#include "bench/Pair.h"

#include <algorithm>
#include <chrono>
#include <vector>

namespace kvi::bench {
namespace {

constexpr int kRounds = 31;

class Runner {
 public:
  explicit Runner(const Side& side) : side_(side) { Run(); }

  void Run() {
    using Clock = std::chrono::steady_clock;
    if (side_.prepare) side_.prepare();
    const Clock::time_point start = Clock::now();
    result_ = side_.run();
    seconds_.push_back(std::chrono::duration<double>(Clock::now() - start).count());
  }
  // The warm-up does not count.
  void Forget() { seconds_.clear(); }
  double Result() const { return result_; }
  double Last() const { return seconds_.back(); }

  double Median() {
    const auto middle = seconds_.begin() + static_cast<std::ptrdiff_t>(seconds_.size() / 2);
    std::nth_element(seconds_.begin(), middle, seconds_.end());
    return *middle;
  }

 private:
  const Side& side_;
  double result_ = 0;
  std::vector<double> seconds_;
};

}  // namespace

void RunPair(benchmark::State& state, const Pair& pair) {
  Runner ours(pair.ours), floor(pair.floor);
  if (ours.Result() != floor.Result()) return state.SkipWithError("the sides do not do the same");
  ours.Forget();
  floor.Forget();
  // The side that goes first changes, so that neither always finds what the other left behind.
  bool oursFirst = true;
  for (auto round : state) {
    static_cast<void>(round);
    (oursFirst ? ours : floor).Run();
    (oursFirst ? floor : ours).Run();
    oursFirst = !oursFirst;
    state.SetIterationTime(ours.Last());
  }
  state.counters["ours"] = ours.Median();
  state.counters["floor"] = floor.Median();
  state.counters["target"] = pair.target;
}

void AsPair(benchmark::internal::Benchmark* figure) {
  figure->UseManualTime()->Iterations(kRounds);
}

}  // namespace kvi::bench
