// A redraw of a chart of four curves of 200 points: laying it out, and painting it on a window's worth of
// pixels.
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

}  // namespace
}  // namespace korva::desktop

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
