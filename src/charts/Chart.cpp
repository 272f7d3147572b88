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

}  // namespace

bool IsHollow(const ChartCurve& curve, std::size_t point) {
  return point < curve.Hollow.size() && curve.Hollow[point];
}

void FitScales(Chart& chart) {
  Extent x;
  Extent y;
  for (const ChartReference& reference : chart.References) {
    constexpr double kRoom = 0.01;  // it never lies on the frame
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
  const auto take = [&](const auto& box) {
    x.Take({box.Left, box.Right});
    y.Take({box.Low, box.High});
  };
  std::for_each(chart.Bars.begin(), chart.Bars.end(), take);
  std::for_each(chart.Cells.begin(), chart.Cells.end(), take);
  chart.XAxis.Scale = x.Scale();
  chart.YAxis.Scale = y.Scale();
}

}  // namespace korva
