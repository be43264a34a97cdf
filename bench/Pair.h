#pragma once

#include <benchmark/benchmark.h>

#include <functional>

namespace kvi::bench {

// One side of a figure. `run` does the work and tells a number by which it is known to be the same
// as the other side's: a sum over what was read, or a count. `prepare` is not measured.
struct Side {
  std::function<double()> run;
  std::function<void()> prepare = {};
};

// What the system takes for a work, beside the plain SQLite loop that does the same work.
struct Pair {
  Side ours, floor;
  double target;  // the highest ratio of the two that is fast enough
};

// Runs the two sides by turns, each warmed up once, and keeps the medians of their times and of
// their ratio as counters.
void RunPair(benchmark::State& state, const Pair& pair);

// To be applied to each figure: how often its pair runs.
void AsPair(benchmark::internal::Benchmark* figure);

}  // namespace kvi::bench
