// A chart as a record: what stands where, in the units of its axes.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "charts/AxisScale.h"
#include "core/Picture.h"

namespace korva {

// The Y of a point that has no value.
inline constexpr double kChartHole = 1e308;

struct ChartAxis {
  std::string Title;
  bool Grid = false;  // lines at its labels
  AxisScale Scale;    // of the whole chart
};

// A curve, or scattered points where it has no line.
struct ChartCurve {
  std::string Label;  // in the legend; empty: not there
  Rgb Colour = 0;
  std::vector<double> X;
  std::vector<double> Y;
  bool Line = true;
  std::optional<SymbolShape> Symbol = {};
  std::vector<bool> Hollow = {};  // by point; none where it is shorter
  std::vector<double> Low = {};   // the ends of an interval around each point; none, or as many as points
  std::vector<double> High = {};
};

// A stretch of X that is shaded from top to bottom.
struct ChartBand {
  double From = 0;
  double To = 0;
};

// A filled rectangle: a bar of a histogram, or one that lies.
struct ChartBar {
  double Left = 0;
  double Right = 0;
  double Low = 0;
  double High = 0;
  Rgb Colour = 0;
};

// A rectangle whose colour tells a value.
struct ChartCell {
  double Left = 0;
  double Right = 0;
  double Low = 0;
  double High = 0;
  double Value = 0;
};

// A dashed line through the chart, with a text at its end.
struct ChartReference {
  double At = 0;
  std::string Text;
  bool Upright = false;  // at a value of X
};

// A text beside a point.
struct ChartLabel {
  double X = 0;
  double Y = 0;
  std::string Text;
};

struct Chart {
  std::string Title;
  ChartAxis XAxis;
  ChartAxis YAxis;
  std::vector<ChartBand> Bands;
  std::vector<ChartCell> Cells;
  std::string CellTitle;  // of their values
  std::vector<ChartBar> Bars;
  std::vector<ChartCurve> Curves;
  double SymbolSize = 5;  // pixels
  std::vector<ChartReference> References;
  std::vector<ChartLabel> Labels;
  bool Legend = true;
  std::vector<std::string> Notes;         // to be read below the plot
  std::vector<std::string> PointNotices;  // by point of the curves, for tables; none, or as many as points
};

// Whether the symbol of a point is hollow: something is to be known about it.
bool IsHollow(const ChartCurve& curve, std::size_t point);

// Gives both axes scales that hold all that the chart shows.
void FitScales(Chart& chart);

}  // namespace korva
