// A parametric graph as it is shown: what stands where, in data units, for every painter.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/GraphData.h"
#include "core/Project.h"
#include "core/Settings.h"

namespace korva {

// The Y of a point that has no value.
inline constexpr double kChartHole = 1e308;

// The quiet shade of a band, as red, green, blue.
inline constexpr std::uint32_t kBandColour = 0xEAE3D5;

struct ChartCurve {
  std::string Label;
  std::uint32_t Colour = 0;  // red, green, blue
  std::vector<double> X;
  std::vector<double> Y;
};

// Round numbers from Low to High, both multiples of Step.
struct AxisScale {
  double Low = 0;
  double High = 1;
  double Step = 1;

  int Labels() const;
  double Value(int label) const;
  std::string Text(int label) const;
};

inline constexpr int kMostLabels = 8;
inline constexpr int kLeastLabels = 3;  // with fewer there may be no round numbers around a range

// The scale of at most `mostLabels` labels that holds `low` and `high`.
AxisScale ScaleFor(double low, double high, int mostLabels = kMostLabels);

// The same with as many labels as leave each other `gap`, on an axis that is `length` long; `size` gives the
// room that a label's text takes along it.
AxisScale ScaleThatFits(double low, double high, double length, double gap,
                        const std::function<double(const std::string& label)>& size);

// Points that stand side by side and about which something is to be known.
struct ChartBand {
  double From = 0;
  double To = 0;
};

struct Chart {
  std::string Title;
  std::string XTitle;
  std::string YTitle;
  bool HorizontalGrid = false;
  bool VerticalGrid = false;
  bool Lines = true;
  bool Symbols = true;
  bool Legend = true;
  int SymbolSize = 5;
  std::vector<ChartCurve> Curves;
  std::vector<std::string> PointNotices;  // of each X; empty texts for nothing, no texts if no point has any
  std::vector<ChartBand> Bands;           // around the points that have one
  std::vector<std::string> Notes;         // to be read below the plot
  std::optional<double> Reference;        // of the stability factor
  AxisScale XScale;
  AxisScale YScale;
};

// The stability factor that a graph is read against: 2 for barriers, 1.5 for the others.
double ReferenceFactor(int graph);

enum class ChartCorner { kTopRight, kTopLeft, kBottomRight, kBottomLeft };

// A box and the room around it, as shares of the plot's width and height.
struct ChartBox {
  double Width = 0;
  double Height = 0;
  double GapAcross = 0;
  double GapUp = 0;
};

// Whether the symbol of a point is hollow: something is to be known about it.
bool IsHollow(const Chart& chart, std::size_t point);

// A corner of the plot where `box` stands away from the frame and from every curve by its gaps; nothing if
// there is none.
std::optional<ChartCorner> FreeCorner(const Chart& chart, const ChartBox& box);

// The notes in lines no wider than `width`, by the room that `size` gives a text. A word longer than a line
// is cut between two characters.
std::vector<std::string> NoteLines(const std::vector<std::string>& notes, double width,
                                   const std::function<double(const std::string& text)>& size);

// The first `curves` curves of `data`, with titles and format of `settings`.
Chart ChartOf(const SweepData& data, int curves, const GraphSettings& settings, bool showReference);

}  // namespace korva
