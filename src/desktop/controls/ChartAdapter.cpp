#include "desktop/controls/ChartAdapter.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QHorizontalBarSeries>
#include <QLegend>
#include <QLineSeries>
#include <QValueAxis>
#include <algorithm>

#include "desktop/look/Look.h"
#include "desktop/look/QtText.h"
#include "desktop/window/ScreenWindow.h"

namespace kvi {

namespace {

// Told apart by whoever sees no red or no green, and in grey by their lightness.
const QColor kBarColor(0x00, 0x72, 0xb2);
const QColor kLineColor(0xd5, 0x5e, 0x00);

}  // namespace

ChartAdapter::ChartAdapter(Chart& chart, ScreenWindow& window)
    : TypedAdapter(chart, new QChartView(&window), window) {
  shown_.setRenderHint(QPainter::Antialiasing);
  shown_.setMinimumSize(320, 180);
  // A stop for whoever is told its values; the toolkit makes the view and its inside one each.
  shown_.setFocusPolicy(Qt::StrongFocus);
  shown_.viewport()->setFocusPolicy(Qt::NoFocus);
}

void ChartAdapter::ShowState() {
  const ChartData& data = control_.Data();
  auto* chart = new QChart;
  chart->setTitle(ToQt(data.title));
  chart->setBackgroundRoundness(0);
  chart->legend()->setVisible(data.series.size() > 1);
  chart->legend()->setAlignment(Qt::AlignBottom);
  if (!data.labels.empty()) {
    AddBars(*chart);
    AddLines(*chart);
    AddAxes(*chart);
  }
  const QChart* before = shown_.chart();
  shown_.setChart(chart);
  delete before;
  shown_.setAccessibleDescription(ToQt(control_.Spoken()));
}

void ChartAdapter::AddBars(QChart& chart) {
  QAbstractBarSeries* bars = nullptr;
  for (const ChartSeries& series : control_.Data().series) {
    if (series.kind != ChartSeries::Kind::Bars) continue;
    if (bars == nullptr && control_.Data().sideways) bars = new QHorizontalBarSeries;
    if (bars == nullptr) bars = new QBarSeries;
    auto* set = new QBarSet(ToQt(series.name));
    for (const double value : series.values) set->append(value);
    set->setColor(kBarColor);
    set->setBorderColor(kBarColor);
    bars->append(set);
  }
  if (bars == nullptr) return;
  bars->setBarWidth(0.7);
  bars->setLabelsVisible(true);
  bars->setLabelsPosition(QAbstractBarSeries::LabelsInsideEnd);
  chart.addSeries(bars);
}

void ChartAdapter::AddLines(QChart& chart) {
  for (const ChartSeries& series : control_.Data().series) {
    if (series.kind != ChartSeries::Kind::Line) continue;
    auto* line = new QLineSeries;
    line->setName(ToQt(series.name));
    for (std::size_t at = 0; at < series.values.size(); ++at)
      line->append(static_cast<double>(at), series.values[at]);
    line->setPen(QPen(kLineColor, 2));
    line->setPointsVisible(true);
    chart.addSeries(line);
  }
}

// From 0, or from below where a value is negative.
void ChartAdapter::AddAxes(QChart& chart) {
  const bool sideways = control_.Data().sideways;
  auto* labels = new QBarCategoryAxis;
  for (const std::string& label : control_.Data().labels) labels->append(ToQt(label));
  labels->setTruncateLabels(false);
  double lowest = 0, highest = 0;
  for (const ChartSeries& series : control_.Data().series)
    for (const double value : series.values) {
      lowest = std::min(lowest, value);
      highest = std::max(highest, value);
    }
  auto* values = new QValueAxis;
  values->setRange(lowest, highest > lowest ? highest * 1.05 : lowest + 1);
  values->applyNiceNumbers();
  chart.addAxis(labels, sideways ? Qt::AlignLeft : Qt::AlignBottom);
  chart.addAxis(values, sideways ? Qt::AlignBottom : Qt::AlignLeft);
  for (QAbstractSeries* series : chart.series()) {
    series->attachAxis(labels);
    series->attachAxis(values);
  }
}

}  // namespace kvi
