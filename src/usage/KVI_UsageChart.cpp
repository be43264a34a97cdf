#include "usage/KVI_UsageChart.h"

namespace kvi {

KVI_UsageChart::KVI_UsageChart(Application& app)
    : KviScreen(app, "KVI_UsageChart", "Usage Chart", "Inventory - Usage Chart") {
  usage_chart.SpokenName = "Usage of the part";
  cost_chart.SpokenName = "Parts of the highest cost";
  print_lab.Click = [this] { PrintImage(); };
  exit_lab.Cancel = true;
  exit_lab.Click = [this] { Exit(); };
}

void KVI_UsageChart::SetCharts(const UsageSeries& usage, const std::vector<PartCost>& costliest) {
  usage_chart.Show({.title = usage.part + " - used up to each locked period",
                    .labels = usage.periods,
                    .series = {{"Used", ChartSeries::Kind::Bars, usage.used},
                               {"Level", ChartSeries::Kind::Line, usage.levels}}});
  ChartData costs{.title = "Highest cost of usage in the last period", .sideways = true};
  ChartSeries cost{"Cost", ChartSeries::Kind::Bars, {}};
  // The axis counts from below.
  for (auto part = costliest.rbegin(); part != costliest.rend(); ++part) {
    costs.labels.push_back(part->part);
    cost.values.push_back(part->cost);
  }
  costs.series.push_back(std::move(cost));
  cost_chart.Show(std::move(costs));
  cost_chart.Visible = !costliest.empty();
}

Layout KVI_UsageChart::Arrange() {
  return Column({BannerLayout(), Actions({&print_lab, &exit_lab}), Fill(Of(usage_chart, 8, 2.2)),
                 Fill(Of(cost_chart, 8, 2.8))});
}

}  // namespace kvi
