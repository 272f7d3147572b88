#include <algorithm>

#include "charts/ChartWork.h"
#include "charts/FitText.h"

namespace korva {

namespace {

constexpr double kPad = 7;
constexpr double kSample = 30;
constexpr double kRowHeight = 20;
constexpr double kInset = 10;            // from the frame of the plot
constexpr double kLeastPlotWidth = 160;  // that is left where the legend stands beside
constexpr double kLeastPlotHeight = 56;

struct LegendEntry {
  std::string Label;
  Rgb Fill = 0;                       // of a bar or band
  const ChartCurve* Curve = nullptr;  // or a curve
};

std::vector<LegendEntry> Entries(const Chart& chart) {
  std::vector<LegendEntry> entries;
  for (const ChartCurve& curve : chart.Curves) {
    entries.push_back({curve.Label, 0, &curve});
  }
  for (const ChartBar& bar : chart.Bars) {
    entries.push_back({bar.Label, bar.Colour});
  }
  for (const ChartBand& band : chart.Bands) {
    entries.push_back({band.Label, band.Colour});
  }
  std::erase_if(entries, [&](const LegendEntry& entry) { return !chart.Legend || entry.Label.empty(); });
  return entries;
}

// A label is never wider than the sheet.
double LabelWidth(const ChartWork& work) {
  double width = 0;
  for (const LegendEntry& entry : Entries(work.Source)) {
    width = std::max(width, work.Width(entry.Label));
  }
  return std::min(width, work.Size.Width - 2 * kEdge - kSample - 3 * kPad);
}

double ColumnWidth(const ChartWork& work) {
  return kSample + kPad + LabelWidth(work) + kPad;
}

// With so many rows in a column.
PictureSize SizeOf(const ChartWork& work, std::size_t rows) {
  const std::size_t columns = (Entries(work.Source).size() + rows - 1) / rows;
  return {static_cast<double>(columns) * ColumnWidth(work) + kPad,
          static_cast<double>(rows) * kRowHeight + 2 * kPad - 4};
}

// Whether any of the straight line between two points lies in the box.
bool Crosses(const PictureBox& box, const DrawPoint& from, const DrawPoint& to) {
  double enters = 0;
  double leaves = 1;
  const auto cut = [&](double start, double step, double low, double high) {
    if (step == 0) {
      return start >= low && start <= high;
    }
    const double a = (low - start) / step;
    const double b = (high - start) / step;
    enters = std::max(enters, std::min(a, b));
    leaves = std::min(leaves, std::max(a, b));
    return enters <= leaves;
  };
  return cut(from.X, to.X - from.X, box.Left, box.Right) && cut(from.Y, to.Y - from.Y, box.Top, box.Bottom);
}

bool CurveCrosses(const ChartWork& work, const ChartCurve& curve, const PictureBox& box) {
  const ChartLayout& out = work.Out;
  const auto isThere = [&curve](std::size_t i) { return curve.Y[i] != kChartHole; };
  for (std::size_t i = 0; i < curve.X.size(); ++i) {
    const std::size_t last = curve.Line && i > 0 && isThere(i - 1) ? i - 1 : i;
    if (isThere(i) &&
        Crosses(box, out.Place(curve.X[last], curve.Y[last]), out.Place(curve.X[i], curve.Y[i]))) {
      return true;
    }
    // An interval is filled from one end to the other, and to the next one.
    if (HasInterval(curve, i)) {
      const std::size_t from = i > 0 && HasInterval(curve, i - 1) ? i - 1 : i;
      if (box.Meets(PlacedBox(out, {curve.X[from], std::min(curve.Low[from], curve.Low[i])},
                              {curve.X[i], std::max(curve.High[from], curve.High[i])}))) {
        return true;
      }
    }
  }
  return false;
}

bool IsFree(const ChartWork& work, const PictureBox& box) {
  const ChartLayout& out = work.Out;
  const auto holds = [&](const ChartBar& bar) {
    return box.Meets(PlacedBox(out, {bar.Left, bar.Low}, {bar.Right, bar.High}));
  };
  const auto crossed = [&](const ChartReference& line) {
    const DrawPoint at = out.Place(line.At, line.At);
    return line.Upright ? at.X > box.Left && at.X < box.Right : at.Y > box.Top && at.Y < box.Bottom;
  };
  const Chart& chart = work.Source;
  return !chart.Cells && std::none_of(chart.Bars.begin(), chart.Bars.end(), holds) &&
         std::none_of(chart.References.begin(), chart.References.end(), crossed) &&
         std::none_of(chart.Curves.begin(), chart.Curves.end(),
                      [&](const ChartCurve& curve) { return CurveCrosses(work, curve, box); });
}

std::optional<PictureBox> FreeCorner(const ChartWork& work, const PictureSize& size) {
  const PictureBox inside = work.Out.Plot.Grown(-kInset);
  const double clear = kInset - 2 + work.SymbolRadius();
  if (size.Width + kLegendGap > inside.Width() || size.Height + kLegendGap > inside.Height()) {
    return std::nullopt;
  }
  for (const double top : {inside.Top, inside.Bottom - size.Height}) {
    for (const double left : {inside.Right - size.Width, inside.Left}) {
      const PictureBox box = {left, top, left + size.Width, top + size.Height};
      if (IsFree(work, box.Grown(clear))) {
        return box;
      }
    }
  }
  return std::nullopt;
}

bool PlaceBeside(ChartWork& work, const PictureSize& size) {
  const PictureBox& plot = work.Out.Plot;
  if (plot.Width() - size.Width - kLegendGap < kLeastPlotWidth ||
      plot.Top + size.Height > work.NotesTop - kEdge) {
    return false;
  }
  PlaceFrame(work, size.Width + kLegendGap);
  const double left = Snapped(plot.Right + work.RightRoom + kLegendGap);
  work.Out.Legend = {left, plot.Top, left + size.Width, plot.Top + size.Height};
  return true;
}

bool PlaceBelow(ChartWork& work, const PictureSize& size) {
  const PictureBox& plot = work.Out.Plot;
  const double below = size.Height + kLegendGap / 2;
  if (size.Width + 2 * kEdge > work.Size.Width || plot.Height() - below < kLeastPlotHeight) {
    return false;
  }
  PlaceFrame(work, 0, below);
  const double left =
      Snapped(std::clamp(plot.CenterX() - size.Width / 2, kEdge, work.Size.Width - kEdge - size.Width));
  const double top = plot.Bottom + kAxisRoom - kEdge / 2;
  work.Out.Legend = {left, top, left + size.Width, top + size.Height};
  return true;
}

}  // namespace

void PlaceLegend(ChartWork& work) {
  const std::size_t entries = Entries(work.Source).size();
  if (entries == 0) {
    return;
  }
  const PictureSize column = SizeOf(work, entries);
  work.LegendRows = entries;
  work.Out.Legend = FreeCorner(work, column);
  bool placed = work.Out.Legend || PlaceBeside(work, column);
  for (std::size_t rows = 1; !placed && rows <= entries; ++rows) {
    work.LegendRows = rows;
    placed = PlaceBelow(work, SizeOf(work, rows));
  }
  work.Out.LegendOmitted = !placed;
}

void DrawLegend(ChartWork& work) {
  if (!work.Out.Legend) {
    return;
  }
  const PictureBox& box = *work.Out.Legend;
  work.AddBox(box, kPaper, {kGridColour, 1});
  const double width = ColumnWidth(work);
  std::size_t entry = 0;
  for (const auto& [label, fill, curve] : Entries(work.Source)) {
    const std::size_t column = entry / work.LegendRows;
    const std::size_t row = entry % work.LegendRows;
    const double left = box.Left + kPad + static_cast<double>(column) * width;
    const double y = box.Top + kPad - 2 + (static_cast<double>(row) + 0.5) * kRowHeight;
    if (curve == nullptr) {
      work.AddBox({left, y - kSample / 4, left + kSample, y + kSample / 4}, fill, {});
    } else {
      if (curve->Line) {
        work.AddLine({left, y}, {left + kSample, y}, {curve->Colour, curve->Width, curve->Dash});
      }
      const double radius = std::min(work.SymbolRadius(), kRowHeight / 2 - 1);
      DrawSymbol(work, *curve, {left + kSample / 2, y}, radius, false, false);
    }
    PictureText text = {label, {left + kSample + kPad, y + kMiddleLine * kTextPixels}, kTextPixels};
    FitText(text, LabelWidth(work) + kRounding, kTextPixels, work.Measure);
    work.AddText(std::move(text));
    ++entry;
  }
  work.Occupied.push_back(box);
}

}  // namespace korva
