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
  bool Grid = false;                    // lines at its labels
  AxisScale Scale = {};                 // of the whole chart
  std::vector<std::string> Names = {};  // its labels at 0, 1, 2 and so on, instead of numbers
};

// A curve, or scattered points where it has no line.
struct ChartCurve {
  std::string Label;  // in the legend; empty: not there
  Rgb Colour = 0;
  std::vector<double> X;
  std::vector<double> Y;
  bool Line = true;
  double Width = 3;  // of the line, as its dashes in pixels
  double Dash = 0;
  std::optional<SymbolShape> Symbol = {};
  std::vector<bool> Hollow = {};  // by point; none where it is shorter
  // The ends of an interval around each point; none, or as many as points, some of which may have no value.
  std::vector<double> Low = {};
  std::vector<double> High = {};
};

// A stretch of X that is shaded from top to bottom.
struct ChartBand {
  double From = 0;
  double To = 0;
  Rgb Colour = 0xEAE3D5;
  std::string Label = {};  // in the legend; empty: not there
};

// A filled rectangle: a bar of a histogram, or one that lies.
struct ChartBar {
  double Left = 0;
  double Right = 0;
  double Low = 0;
  double High = 0;
  Rgb Colour = 0;
  std::string Label = {};  // in the legend, of one of the bars that look alike
};

// Rectangles between edges whose colours tell values.
struct ChartCells {
  std::vector<double> XEdges;  // ascending, from the first column's left
  std::vector<double> YEdges;  // ascending, from the first row's lower
  std::vector<double> Values;  // row by row; kChartHole: nothing is drawn there
  std::string Title;           // of the values
  AxisScale Scale = {};        // of the colours
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
  std::optional<ChartCells> Cells;
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

// Gives axes and colours scales that hold all that the chart shows.
void FitScales(Chart& chart);

}  // namespace korva
