#pragma once

#include <string>
#include <vector>

#include "frame/KviScreen.h"
#include "platform/Chart.h"

namespace kvi {

// What a part's locked periods tell, a value a period; of the first one no usage is known.
struct UsageSeries {
  std::string part;
  std::vector<std::string> periods;
  std::vector<double> used, levels;  // how-purchased units
};

struct PartCost {
  std::string part;
  double cost = 0;
};

// Usage as a picture: one part over its periods, and the parts whose usage cost most between the
// last two.
class KVI_UsageChart : public KviScreen {
 public:
  explicit KVI_UsageChart(Application& app);

  void SetCharts(const UsageSeries& usage, const std::vector<PartCost>& costliest);

  Layout Arrange() override;

  Chart usage_chart{*this, "usage_chart"};
  Chart cost_chart{*this, "cost_chart"};
  ActionLabel print_lab{*this, "print_lab", "&Print"};
  ActionLabel exit_lab{*this, "exit_lab", "E&xit"};
};

}  // namespace kvi
