#include <algorithm>
#include <array>
#include <cmath>

#include "charts/ChartWork.h"
#include "charts/FitText.h"

namespace korva {

namespace {

constexpr double kHollowWidth = 1.5;
constexpr double kScaleWidth = 14;  // the width of the scale of colours
constexpr int kScaleSteps = 64;
constexpr double kSamplesPerPixel = 2;  // of the cells' colours in a pixel
constexpr double kLeastOutlined = 4;    // a thinner bar would be all outline

// Dark to light, in steps that look alike to all eyes.
std::uint32_t CellPixel(double share) {
  constexpr std::array<Rgb, 5> kStops = {0x440154, 0x3B528B, 0x21918C, 0x5EC962, 0xFDE725};
  const double place = std::clamp(share, 0.0, 1.0) * (kStops.size() - 1);
  const std::size_t stop = std::min(static_cast<std::size_t>(place), kStops.size() - 2);
  std::uint32_t pixel = kOpaque;
  for (const unsigned shift : {16U, 8U, 0U}) {
    const auto part = [shift](Rgb of) { return static_cast<double>((of >> shift) & 0xFFU); };
    const double low = part(kStops[stop]);
    const double mixed = low + (place - static_cast<double>(stop)) * (part(kStops[stop + 1]) - low);
    pixel |= static_cast<Rgb>(std::lround(mixed)) << shift;
  }
  return pixel;
}

Rgb Lightened(Rgb colour) {
  return (colour >> 2U & 0x3F3F3FU) + 0xC0C0C0U;
}

// The row or column that each sample along an axis lies in, counted from 1 on; 0 or the number of edges
// outside of them all.
std::vector<std::size_t> CellsAlong(const std::vector<double>& edges, double length, const AxisRange& axis) {
  std::vector<std::size_t> cells(static_cast<std::size_t>(kSamplesPerPixel * length));
  const double step = (axis.High - axis.Low) / static_cast<double>(cells.size());
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const double value = axis.Low + (static_cast<double>(i) + 0.5) * step;
    cells[i] = static_cast<std::size_t>(std::upper_bound(edges.begin(), edges.end(), value) - edges.begin());
  }
  return cells;
}

// As samples, for cells may be of any size, and nobody smooths what is finer than a pixel.
void DrawCells(ChartWork& work, const ChartCells& cells) {
  const std::size_t rows = cells.YEdges.size();
  const std::size_t columns = cells.XEdges.size();
  std::vector<std::uint32_t> pixels((rows + 1) * (columns + 1));  // by cell, with nothing around them
  for (std::size_t row = 1; row < rows; ++row) {
    for (std::size_t column = 1; column < columns; ++column) {
      const double value = cells.Values.at((row - 1) * (columns - 1) + column - 1);
      if (value != kChartHole) {
        pixels[row * (columns + 1) + column] =
            CellPixel((value - cells.Scale.Low) / (cells.Scale.High - cells.Scale.Low));
      }
    }
  }
  const PictureBox& plot = work.Out.Plot;
  const ChartWindow& seen = work.Out.Seen;
  const std::vector<std::size_t> across = CellsAlong(cells.XEdges, plot.Width(), seen.X);
  PictureRaster raster = {plot, across.size(), {}};
  raster.Pixels.reserve(across.size() * static_cast<std::size_t>(kSamplesPerPixel * plot.Height()));
  for (const std::size_t row : CellsAlong(cells.YEdges, plot.Height(), {seen.Y.High, seen.Y.Low})) {
    for (const std::size_t column : across) {
      raster.Pixels.push_back(pixels[row * (columns + 1) + column]);
    }
  }
  work.Add(std::move(raster));
}

// Calls `act` with the first point of each run of those that are there, and the one after its last.
template <class There, class Act>
void ForEachRun(const ChartCurve& curve, There&& isThere, Act&& act) {
  const std::size_t points = curve.X.size();
  for (std::size_t first = 0, end = 0; first < points; first = end + 1) {
    for (end = first; end < points && isThere(end);) {
      ++end;
    }
    if (end > first) {
      act(first, end);
    }
  }
}

void DrawInterval(ChartWork& work, const ChartCurve& curve) {
  const auto isThere = [&curve](std::size_t i) { return HasInterval(curve, i); };
  ForEachRun(curve, isThere, [&](std::size_t first, std::size_t end) {
    const Rgb colour = Lightened(curve.Colour);  // as a line around it, too, for a point alone
    PicturePath area = {.Points = {}, .Pen = {colour, 1}, .Closed = true, .Fill = colour, .Clipped = true};
    for (std::size_t i = first; i < end; ++i) {
      area.Points.push_back(work.Out.Place(curve.X[i], curve.High[i]));
    }
    for (std::size_t i = end; i-- > first;) {
      area.Points.push_back(work.Out.Place(curve.X[i], curve.Low[i]));
    }
    work.Add(std::move(area));
  });
}

void DrawCurveLine(ChartWork& work, const ChartCurve& curve) {
  const auto isThere = [&curve](std::size_t i) { return curve.Y[i] != kChartHole; };
  ForEachRun(curve, isThere, [&](std::size_t first, std::size_t end) {
    PicturePath line = {.Points = {}, .Pen = {curve.Colour, curve.Width, curve.Dash}, .Clipped = true};
    for (std::size_t i = first; i < end; ++i) {
      line.Points.push_back(work.Out.Place(curve.X[i], curve.Y[i]));
    }
    if (line.Points.size() > 1) {
      work.Add(std::move(line));
    }
  });
}

void DrawCurve(ChartWork& work, std::size_t index) {
  const ChartCurve& curve = work.Source.Curves[index];
  if (curve.Line) {
    DrawCurveLine(work, curve);
  }
  for (std::size_t i = 0; i < curve.X.size(); ++i) {
    if (curve.Y[i] != kChartHole) {
      const DrawPoint at = work.Out.Place(curve.X[i], curve.Y[i]);
      DrawSymbol(work, curve, at, work.SymbolRadius(), IsHollow(curve, i), true);
      work.Out.Points.push_back({index, i, at});
    }
  }
}

}  // namespace

PictureBox PlacedBox(const ChartLayout& layout, const DrawPoint& from, const DrawPoint& to) {
  const DrawPoint a = layout.Place(from.X, from.Y);
  const DrawPoint b = layout.Place(to.X, to.Y);
  return {std::min(a.X, b.X), std::min(a.Y, b.Y), std::max(a.X, b.X), std::max(a.Y, b.Y)};
}

bool HasInterval(const ChartCurve& curve, std::size_t point) {
  return point < curve.Low.size() && curve.Low[point] != kChartHole && curve.High[point] != kChartHole;
}

void DrawSymbol(ChartWork& work, const ChartCurve& curve, const DrawPoint& at, double radius, bool hollow,
                bool clipped) {
  if (curve.Symbol) {
    work.Add(PictureSymbol{*curve.Symbol,
                           at,
                           radius,
                           hollow ? kPaper : curve.Colour,
                           {curve.Colour, hollow ? kHollowWidth : 0},
                           clipped});
  }
}

void DrawBackdrop(ChartWork& work) {
  const ChartLayout& out = work.Out;
  for (const ChartBand& band : work.Source.Bands) {
    const double from = std::max(out.Plot.Left, out.Place(band.From, 0).X);
    const double to = std::min(out.Plot.Right, out.Place(band.To, 0).X);
    if (from < to) {
      work.AddBox({from, out.Plot.Top, to, out.Plot.Bottom}, band.Colour, {}, true);
    }
  }
  if (work.Source.Cells) {
    DrawCells(work, *work.Source.Cells);
  }
}

void DrawMarks(ChartWork& work) {
  for (const ChartBar& bar : work.Source.Bars) {
    const PictureBox box = PlacedBox(work.Out, {bar.Left, bar.Low}, {bar.Right, bar.High});
    const double outline = std::min(box.Width(), box.Height()) < kLeastOutlined ? 0 : 1;
    work.AddBox(box, bar.Colour, {kPaper, outline}, true);
  }
  for (const ChartCurve& curve : work.Source.Curves) {
    DrawInterval(work, curve);
  }
  for (std::size_t i = 0; i < work.Source.Curves.size(); ++i) {
    DrawCurve(work, i);
  }
}

double CellScaleRoom(const ChartWork& work) {
  if (!work.Source.Cells) {
    return 0;
  }
  const AxisScale& scale = work.Source.Cells->Scale;
  double labels = 0;
  for (int i = 0; i < scale.Labels(); ++i) {
    labels = std::max(labels, work.Width(scale.Text(i)));
  }
  return kScaleWidth + kEdge + labels + (work.Source.Cells->Title.empty() ? 0 : kTextPixels + kEdge);
}

void DrawCellScale(ChartWork& work) {
  if (!work.Source.Cells || work.CellsLeft + kScaleWidth > work.Size.Width) {
    return;
  }
  const PictureBox& plot = work.Out.Plot;
  const double left = work.CellsLeft;
  PictureRaster strip = {{left, plot.Top, left + kScaleWidth, plot.Bottom}, 1, {}};
  for (int i = kScaleSteps; i-- > 0;) {
    strip.Pixels.push_back(CellPixel((i + 0.5) / kScaleSteps));
  }
  work.Add(std::move(strip));
  const AxisScale& scale = work.Source.Cells->Scale;
  for (int i = 0; i < scale.Labels(); ++i) {
    const double y = plot.Bottom - (scale.Value(i) - scale.Low) / (scale.High - scale.Low) * plot.Height();
    work.AddText(
        {scale.Text(i), {left + kScaleWidth + kEdge / 2, y + kMiddleLine * kTextPixels}, kTextPixels});
  }
  PictureText title = {work.Source.Cells->Title,
                       {work.CellsLeft + CellScaleRoom(work) - kEdge / 2, plot.CenterY()},
                       kTextPixels,
                       0.5,
                       true};
  FitText(title, plot.Height(), kLeastPixels, work.Measure);
  work.AddText(std::move(title));
}

}  // namespace korva
