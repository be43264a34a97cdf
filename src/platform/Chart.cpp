#include "platform/Chart.h"

#include <utility>

#include "base/Format.h"

namespace kvi {

Chart::Chart(Screen& screen, std::string name)
    : Control(screen, ControlKind::Chart, std::move(name)) {}

void Chart::Show(ChartData data) {
  data_ = std::move(data);
  TellView(Property::Picture);
}

std::string Chart::Spoken() const {
  std::string text = data_.title;
  for (std::size_t at = 0; at < data_.labels.size(); ++at) {
    text += "\n" + data_.labels[at] + ":";
    const char* separator = " ";
    for (const ChartSeries& series : data_.series) {
      text += separator + series.name + " " + Format(series.values[at], "########0.00");
      separator = ", ";
    }
  }
  return text;
}

}  // namespace kvi
