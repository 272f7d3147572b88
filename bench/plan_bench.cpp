// A redraw of the largest plan: laying it out, and painting it on a window's worth of pixels.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "desktop/plan/PaintDrawing.h"
#include "plan/KORVAgraf.h"

namespace korva::desktop {
namespace {

constexpr int kSide = 900;

// Ten entries with angled crosscuts between two gobs, every row left, every dimension drawn, gobs to scale.
PlanRequest LargestPlan() {
  PlanRequest request;
  Project& p = request.ProjectCalc;
  p.EntryWidth = 20;
  p.XcutSpacing = 100;
  p.XcutAngle = 60;
  p.NumberEntries = kMaxEntries;
  for (double& center : p.XcutCenters) {
    center = 80;
  }
  p.LoadingCondition = PanelLoading{3};
  p.ExtentActiveGob = p.ExtentFirstGob = p.ExtentSecondGob = 1000;
  p.BarrierFirstGob = p.BarrierSecondGob = 150;
  p.RowA = p.RowB = p.RowC = p.RowD = 1;
  p.WidthRowC = p.WidthRowD = 50;
  for (float& spacing : request.Geometry.PlotXcutSpacing) {
    spacing = 100;
  }
  request.Geometry.SchematicGobs = false;
  request.Options.PlotSingleXcutDims = false;
  return request;
}

void LayOut(benchmark::State& state) {
  const PlanRequest request = LargestPlan();
  for (auto turn : state) {
    benchmark::DoNotOptimize(DrawPlan(request));
  }
}
BENCHMARK(LayOut)->Unit(benchmark::kMillisecond);

void Redraw(benchmark::State& state) {
  const PlanRequest request = LargestPlan();
  const auto scale = static_cast<int>(state.range(0));
  QImage window(kSide * scale, kSide * scale, QImage::Format_ARGB32_Premultiplied);
  window.setDevicePixelRatio(scale);
  for (auto turn : state) {
    const Plan plan = *DrawPlan(request);
    QPainter painter(&window);
    PaintDrawing(painter, QRectF(0, 0, kSide, kSide), PictureOf(plan), {QPalette(), DrawingFont(QFont())});
  }
}
BENCHMARK(Redraw)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace korva::desktop

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
