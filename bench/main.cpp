// Measures the system beside plain SQLite: one line a figure. To be started in a folder that
// kvi-setup made; see bench/table.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "bench/DelayLine.h"
#include "bench/ServerFigures.h"
#include "bench/Stockroom.h"
#include "bench/Trips.h"

namespace {

std::string TimeText(double seconds) {
  char text[32];
  std::snprintf(text, sizeof text, "%.2f ms", seconds * 1e3);
  return text;
}

// Prints what RunPair counted.
class TableReporter : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override {
    std::printf("%-42s %12s %12s %7s %7s\n", "", "ours", "floor", "ratio", "target");
    return true;
  }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) Report(run);
    std::fflush(stdout);
  }

  bool HasFailed() const { return failed_; }

 private:
  void Report(const Run& run) {
    const std::string& name = run.run_name.function_name;
    if (run.error_occurred) {
      std::printf("%-42s failed: %s\n", name.c_str(), run.error_message.c_str());
      failed_ = true;
      return;
    }
    const auto counter = [&](const char* counterName) {
      return run.counters.at(counterName).value;
    };
    const double ratio = counter("ratio"), target = counter("target");
    std::printf("%-42s %12s %12s %7.2f %7.2f%s\n", name.c_str(), TimeText(counter("ours")).c_str(),
                TimeText(counter("floor")).c_str(), ratio, target, ratio > target ? "  over" : "");
  }

  bool failed_ = false;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && std::string_view(argv[1]) == "--trips") {
    if (!kvi::bench::MakeDatabase()) return EXIT_FAILURE;
    kvi::bench::MakeTrips();
    return EXIT_SUCCESS;
  }
  if (argc == 5 && std::string_view(argv[1]) == "--delay") {
    const std::chrono::microseconds delay(std::atoi(argv[4]));
    return kvi::bench::RunDelayLine(argv[2], argv[3], delay) ? EXIT_SUCCESS : EXIT_FAILURE;
  }
  if (argc > 2 && std::string_view(argv[1]) == "--server") {
    kvi::bench::MakeServerFigures({argv + 2, argv + argc});
    return EXIT_SUCCESS;
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return EXIT_FAILURE;
  if (!kvi::bench::MakeDatabase()) {
    std::fputs("There is no KV_Inventory.mdb here: see bench/table.\n", stderr);
    return EXIT_FAILURE;
  }
  TableReporter table;
  benchmark::RunSpecifiedBenchmarks(&table);
  return table.HasFailed() ? EXIT_FAILURE : EXIT_SUCCESS;
}
