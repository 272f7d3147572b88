#include <algorithm>
#include <array>
#include <cmath>

#include "charts/ChartWork.h"

namespace korva {

namespace {

constexpr double kHollowWidth = 1.5;
constexpr double kStrip = 14;  // the width of the scale of colours
constexpr int kStripParts = 64;

// Dark to light, in steps that look alike to all eyes.
Rgb CellColour(double share) {
  constexpr std::array<Rgb, 5> kStops = {0x440154, 0x3B528B, 0x21918C, 0x5EC962, 0xFDE725};
  const double place = std::clamp(share, 0.0, 1.0) * (kStops.size() - 1);
  const std::size_t stop = std::min(static_cast<std::size_t>(place), kStops.size() - 2);
  Rgb colour = 0;
  for (const unsigned shift : {16U, 8U, 0U}) {
    const auto part = [shift](Rgb of) { return static_cast<double>((of >> shift) & 0xFFU); };
    const double low = part(kStops[stop]);
    const double mixed = low + (place - static_cast<double>(stop)) * (part(kStops[stop + 1]) - low);
    colour |= static_cast<Rgb>(std::lround(mixed)) << shift;
  }
  return colour;
}

Rgb Paled(Rgb colour) {
  return (colour >> 2U & 0x3F3F3FU) + 0xC0C0C0U;
}

// A rectangle in the units of the axes.
template <class Filled>
void DrawFilled(ChartWork& work, const Filled& filled, Rgb colour, const PicturePen& pen) {
  const DrawPoint low = work.Out.Place(filled.Left, filled.Low);
  const DrawPoint high = work.Out.Place(filled.Right, filled.High);
  work.AddBox({low.X, high.Y, high.X, low.Y}, colour, pen, true);
}

void DrawInterval(ChartWork& work, const ChartCurve& curve) {
  PicturePath area = {.Points = {}, .Pen = {}, .Closed = true, .Fill = Paled(curve.Colour), .Clipped = true};
  for (std::size_t i = 0; i < curve.High.size(); ++i) {
    area.Points.push_back(work.Out.Place(curve.X[i], curve.High[i]));
  }
  for (std::size_t i = curve.Low.size(); i-- > 0;) {
    area.Points.push_back(work.Out.Place(curve.X[i], curve.Low[i]));
  }
  if (!area.Points.empty()) {
    work.Add(std::move(area));
  }
}

// A line for each run of points that have a value.
void DrawCurveLine(ChartWork& work, const ChartCurve& curve) {
  PicturePath line = {.Points = {}, .Pen = {curve.Colour, kCurveWidth}, .Clipped = true};
  const auto end = [&] {
    if (line.Points.size() > 1) {
      work.Add(line);
    }
    line.Points.clear();
  };
  for (std::size_t i = 0; i < curve.X.size(); ++i) {
    if (curve.Y[i] == kChartHole) {
      end();
    } else {
      line.Points.push_back(work.Out.Place(curve.X[i], curve.Y[i]));
    }
  }
  end();
}

void DrawCurve(ChartWork& work, std::size_t index) {
  const ChartCurve& curve = work.Of.Curves[index];
  if (curve.Line) {
    DrawCurveLine(work, curve);
  }
  for (std::size_t i = 0; i < curve.X.size(); ++i) {
    if (curve.Y[i] != kChartHole) {
      const DrawPoint at = work.Out.Place(curve.X[i], curve.Y[i]);
      DrawSymbol(work, curve, at, IsHollow(curve, i), true);
      work.Out.Points.push_back({index, i, at});
    }
  }
}

}  // namespace

void DrawSymbol(ChartWork& work, const ChartCurve& curve, const DrawPoint& at, bool hollow, bool clipped) {
  if (curve.Symbol) {
    work.Add(PictureSymbol{*curve.Symbol,
                           at,
                           work.SymbolRadius(),
                           hollow ? kPaper : curve.Colour,
                           {curve.Colour, hollow ? kHollowWidth : 0},
                           clipped});
  }
}

void DrawGround(ChartWork& work) {
  const ChartLayout& out = work.Out;
  for (const ChartBand& band : work.Of.Bands) {
    work.AddBox({out.Place(band.From, 0).X, out.Plot.Top, out.Place(band.To, 0).X, out.Plot.Bottom},
                kBandColour, {}, true);
  }
  const AxisScale& scale = work.CellLabels;
  for (const ChartCell& cell : work.Of.Cells) {
    const Rgb colour = CellColour((cell.Value - scale.Low) / (scale.High - scale.Low));
    DrawFilled(work, cell, colour, {colour, 1});  // without seams
  }
}

void DrawMarks(ChartWork& work) {
  for (const ChartBar& bar : work.Of.Bars) {
    DrawFilled(work, bar, bar.Colour, {kPaper, 1});
  }
  for (const ChartCurve& curve : work.Of.Curves) {
    DrawInterval(work, curve);
  }
  for (std::size_t i = 0; i < work.Of.Curves.size(); ++i) {
    DrawCurve(work, i);
  }
}

double CellScaleRoom(ChartWork& work) {
  if (work.Of.Cells.empty()) {
    return 0;
  }
  const auto [low, high] =
      std::minmax_element(work.Of.Cells.begin(), work.Of.Cells.end(),
                          [](const ChartCell& a, const ChartCell& b) { return a.Value < b.Value; });
  work.CellLabels = ScaleFor(low->Value, high->Value);
  double labels = 0;
  for (int i = 0; i < work.CellLabels.Labels(); ++i) {
    labels = std::max(labels, work.Width(work.CellLabels.Text(i)));
  }
  return kStrip + kEdge + labels + (work.Of.CellTitle.empty() ? 0 : kTextPixels + kEdge);
}

void DrawCellScale(ChartWork& work) {
  if (work.Of.Cells.empty() || work.CellsLeft + kStrip > work.Size.Width) {
    return;
  }
  const PictureBox& plot = work.Out.Plot;
  const double left = work.CellsLeft;
  const double part = plot.Height() / kStripParts;
  for (int i = 0; i < kStripParts; ++i) {
    const Rgb colour = CellColour((i + 0.5) / kStripParts);
    const double bottom = plot.Bottom - i * part;
    work.AddBox({left, bottom - part, left + kStrip, bottom}, colour, {colour, 1});
  }
  const AxisScale& scale = work.CellLabels;
  for (int i = 0; i < scale.Labels(); ++i) {
    const double y = plot.Bottom - (scale.Value(i) - scale.Low) / (scale.High - scale.Low) * plot.Height();
    work.AddText({scale.Text(i), {left + kStrip + kEdge / 2, y + kMiddleLine * kTextPixels}, kTextPixels});
  }
  work.AddText({work.Of.CellTitle,
                {work.CellsLeft + CellScaleRoom(work) - kEdge / 2, plot.Down()},
                kTextPixels,
                0.5,
                true});
}

}  // namespace korva
