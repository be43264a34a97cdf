#pragma once

#include <string>
#include <vector>

#include "platform/Control.h"

namespace kvi {

// One row of values of a chart, as many as the chart has labels.
struct ChartSeries {
  enum class Kind { Bars, Line };
  std::string name;
  Kind kind = Kind::Bars;
  std::vector<double> values;
};

struct ChartData {
  std::string title;
  std::vector<std::string> labels;
  std::vector<ChartSeries> series;
  bool sideways = false;  // bars from left to right, for labels that are names
};

// Shows rows of values as a picture: bars, with lines over them. Whoever cannot see it is told the
// same values as text.
class Chart : public Control {
 public:
  Chart(Screen& screen, std::string name);

  const ChartData& Data() const { return data_; }
  void Show(ChartData data);
  // Title and values, a line a label: "3/1/2026: Used 12, Level 4".
  std::string Spoken() const;

 private:
  ChartData data_;
};

}  // namespace kvi
