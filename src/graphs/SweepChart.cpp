#include "graphs/SweepChart.h"

#include <array>

#include "core/Format.h"
#include "core/Limits.h"
#include "graphs/GraphTitles.h"
#include "graphs/SweepNotes.h"

namespace korva {

namespace {

constexpr std::array<SymbolShape, kMostCurves> kSymbols = {SymbolShape::kDisc, SymbolShape::kSquare,
                                                           SymbolShape::kTriangle, SymbolShape::kDiamond};

ChartCurve CurveOf(const SweepData& data, int index, const GraphSettings& settings) {
  const auto entry = static_cast<std::size_t>(index - 1);
  ChartCurve curve = {
      .Label = std::string(CurveLabel(index)), .Colour = CurveColours.at(entry), .X = {}, .Y = {}};
  curve.Line = settings.GraphStyle != CurveStyle::kSymbols;
  if (settings.GraphStyle != CurveStyle::kLines) {
    curve.Symbol = kSymbols.at(entry);
  }
  const auto points = static_cast<std::ptrdiff_t>(data.PointsOf(index));
  curve.X.assign(data.GraphData[0].begin(), data.GraphData[0].begin() + points);
  curve.Y.assign(data.GraphData[index].begin(), data.GraphData[index].begin() + points);
  return curve;
}

// Each band ends half way to the next point, or where the axis does.
void AddNotices(Chart& chart, const SweepData& data) {
  const auto x = [&data](std::size_t i) { return static_cast<double>(data.GraphData[0][i]); };
  const std::size_t points = data.Notices.size();
  const auto runs = NoticedPoints(data);
  for (const auto& [first, last] : runs) {
    chart.Bands.push_back({first == 0 ? chart.XAxis.Scale.Low : (x(first - 1) + x(first)) / 2,
                           last + 1 == points ? chart.XAxis.Scale.High : (x(last) + x(last + 1)) / 2});
  }
  for (std::size_t i = 0; i < points && !runs.empty(); ++i) {
    chart.PointNotices.push_back(NoticeText(data.Notices[i]));
    for (ChartCurve& curve : chart.Curves) {
      curve.Hollow.push_back(!data.Notices[i].empty());
    }
  }
}

}  // namespace

double ReferenceFactor(GraphKind graph) {
  return IsBarrierGraph(graph) ? kRequiredBarrierSF : kRequiredSF;
}

Chart ChartOf(const SweepData& data, int curves, const GraphSettings& settings, bool showReference) {
  const auto hasGrid = [&settings](GridLines lines) {
    return settings.GridStyle == lines || settings.GridStyle == GridLines::kBoth;
  };
  Chart chart;
  chart.Title = settings.GraphTitle;
  chart.XAxis.Title = settings.XAxisTitle[data.GraphIndex];
  chart.XAxis.Grid = hasGrid(GridLines::kVertical);
  chart.YAxis.Title = settings.YAxisTitle[YTitleOf(data.GraphIndex)];
  chart.YAxis.Grid = hasGrid(GridLines::kHorizontal);
  chart.Legend = settings.CurveLegend;
  chart.SymbolSize = settings.SymbolSize;
  for (int i = 1; i <= curves; ++i) {
    chart.Curves.push_back(CurveOf(data, i, settings));
  }
  for (const int i : CurvesWithoutFactor(data)) {
    if (i <= curves) {
      ChartCurve& curve = chart.Curves[static_cast<std::size_t>(i - 1)];
      curve.Y.assign(curve.Y.size(), kChartHole);
    }
  }
  if (showReference) {
    const double factor = ReferenceFactor(data.GraphIndex);
    chart.References.push_back({factor, Format(factor, "0.0")});
  }
  FitScales(chart);
  AddNotices(chart, data);
  chart.Notes = SweepNotes(data, curves);
  return chart;
}

}  // namespace korva
