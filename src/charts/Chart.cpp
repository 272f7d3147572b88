#include "charts/Chart.h"

#include <algorithm>
#include <cmath>

namespace korva {

namespace {

struct Extent {
  double Low = kChartHole;
  double High = -kChartHole;

  void Take(double value) {
    if (value != kChartHole) {
      Low = std::min(Low, value);
      High = std::max(High, value);
    }
  }
  void Take(const std::vector<double>& values) {
    for (const double value : values) {
      Take(value);
    }
  }
  AxisScale Scale() const { return Low > High ? AxisScale{} : ScaleFor(Low, High); }
};

// Named places stand half a step from the ends.
AxisScale ScaleOf(const ChartAxis& axis, const Extent& shown) {
  return axis.Names.empty() ? shown.Scale()
                            : AxisScale{-0.5, static_cast<double>(axis.Names.size()) - 0.5, 1};
}

}  // namespace

bool IsHollow(const ChartCurve& curve, std::size_t point) {
  return point < curve.Hollow.size() && curve.Hollow[point];
}

void FitScales(Chart& chart) {
  Extent x;
  Extent y;
  for (const ChartReference& reference : chart.References) {
    constexpr double kRoom = 0.01;  // clear of the frame, but at 0
    for (const double share : {1 - kRoom, 1 + kRoom}) {
      (reference.Upright ? x : y).Take(share * reference.At);
    }
  }
  for (const ChartCurve& curve : chart.Curves) {
    x.Take(curve.X);
    for (const auto* values : {&curve.Y, &curve.Low, &curve.High}) {
      y.Take(*values);
    }
  }
  for (const ChartBar& bar : chart.Bars) {
    x.Take({bar.Left, bar.Right});
    y.Take({bar.Low, bar.High});
  }
  for (const ChartBand& band : chart.Bands) {
    x.Take({band.From, band.To});
  }
  for (const ChartLabel& label : chart.Labels) {
    x.Take(label.X);
    y.Take(label.Y);
  }
  if (chart.Cells) {
    x.Take(chart.Cells->XEdges);
    y.Take(chart.Cells->YEdges);
    Extent values;
    values.Take(chart.Cells->Values);
    chart.Cells->Scale = values.Scale();
  }
  chart.XAxis.Scale = ScaleOf(chart.XAxis, x);
  chart.YAxis.Scale = ScaleOf(chart.YAxis, y);
}

}  // namespace korva
