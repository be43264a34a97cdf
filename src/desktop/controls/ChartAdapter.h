#pragma once

#include <QChartView>

#include "desktop/controls/ControlAdapter.h"
#include "platform/Chart.h"

namespace kvi {

class ChartAdapter : public TypedAdapter<Chart, QChartView> {
 public:
  ChartAdapter(Chart& chart, ScreenWindow& window);

 protected:
  void ShowState() override;
  void ShowColors() override {}

 private:
  void AddBars(QChart& chart);
  void AddLines(QChart& chart);
  void AddAxes(QChart& chart);
};

}  // namespace kvi
