// A redraw of a chart of four curves of 200 points, and of a map of 200 by 200 values: laying it out, and
// painting it on a window's worth of pixels.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <cmath>

#include "charts/LayOutChart.h"
#include "desktop/support/PaintPicture.h"
#include "pictures/PaintPicture.h"

namespace korva::desktop {
namespace {

constexpr PictureSize kSize = {900, 600};

Chart FourCurves() {
  constexpr int kPoints = 200;
  Chart chart;
  chart.Title = "Korva Panel Review - Strondel";
  chart.XAxis = {"Depth of Cover (ft)", true, {}};
  chart.YAxis = {"Stability Factor", true, {}};
  for (int i = 0; i < 4; ++i) {
    ChartCurve curve = {.Label = "Development (KORVA-STROND)", .Colour = 0x6400, .X = {}, .Y = {}};
    curve.Symbol = static_cast<SymbolShape>(i);
    for (int point = 0; point < kPoints; ++point) {
      curve.X.push_back(500 + 5 * point);
      curve.Y.push_back(3.0 / (1 + 0.01 * point) + 0.3 * i + 0.05 * std::sin(point));
    }
    chart.Curves.push_back(curve);
  }
  chart.References.push_back({1.5, "1.5"});
  FitScales(chart);
  return chart;
}

void LayOutFourCurves(benchmark::State& state) {
  const Chart chart = FourCurves();
  for (auto turn : state) {
    benchmark::DoNotOptimize(LayOutChart(chart, kSize, TextWidth));
  }
}
BENCHMARK(LayOutFourCurves)->Unit(benchmark::kMillisecond);

void RedrawFourCurves(benchmark::State& state) {
  const Chart chart = FourCurves();
  const auto scale = static_cast<int>(state.range(0));
  QImage window(QSizeF(kSize.Width, kSize.Height).toSize() * scale, QImage::Format_ARGB32_Premultiplied);
  window.setDevicePixelRatio(scale);
  for (auto turn : state) {
    QPainter painter(&window);
    PaintPicture(painter, LayOutChart(chart, kSize, TextWidth).Drawn);
  }
}
BENCHMARK(RedrawFourCurves)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

void FileOfFourCurves(benchmark::State& state) {
  const Chart chart = FourCurves();
  for (auto turn : state) {
    benchmark::DoNotOptimize(PictureBytes(PictureKind::kSvg, LayOutChart(chart, kSize, TextWidth).Drawn));
  }
}
BENCHMARK(FileOfFourCurves)->Unit(benchmark::kMillisecond);

Chart Map() {
  constexpr int kSide = 200;
  Chart chart;
  chart.Cells = ChartCells{{0}, {0}, {}, "Stress (psi)"};
  for (int y = 0; y < kSide; ++y) {
    chart.Cells->XEdges.push_back(5 * (y + 1));
    chart.Cells->YEdges.push_back(5 * (y + 1));
    for (int x = 0; x < kSide; ++x) {
      chart.Cells->Values.push_back(1000 * std::sin(0.07 * x) * std::cos(0.05 * y) + x % 7);
    }
  }
  FitScales(chart);
  return chart;
}

void RedrawMap(benchmark::State& state) {
  const Chart chart = Map();
  QImage window(QSizeF(kSize.Width, kSize.Height).toSize(), QImage::Format_ARGB32_Premultiplied);
  for (auto turn : state) {
    QPainter painter(&window);
    PaintPicture(painter, LayOutChart(chart, kSize, TextWidth).Drawn);
  }
}
BENCHMARK(RedrawMap)->Unit(benchmark::kMillisecond);

void FileOfMap(benchmark::State& state) {
  const Chart chart = Map();
  for (auto turn : state) {
    const Picture drawn = LayOutChart(chart, kSize, TextWidth).Drawn;
    const auto kind = static_cast<PictureKind>(state.range(0));
    state.counters["bytes"] = static_cast<double>(PictureBytes(kind, drawn).size());
  }
}
BENCHMARK(FileOfMap)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace korva::desktop

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
