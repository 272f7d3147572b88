// A parametric graph as it is shown: what stands where, in data units, for every painter.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/GraphData.h"
#include "core/Project.h"
#include "core/Settings.h"

namespace korva {

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

// The scale of at most eight labels that holds `low` and `high`.
AxisScale ScaleFor(double low, double high);

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
  std::optional<double> Reference;  // of the stability factor
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

// A corner of the plot where `box` stands away from the frame and from every curve by its gaps; nothing if
// there is none.
std::optional<ChartCorner> FreeCorner(const Chart& chart, const ChartBox& box);

// The first `curves` curves of `data`, with titles and format of `settings`.
Chart ChartOf(const SweepData& data, int curves, const GraphSettings& settings, bool showReference);

}  // namespace korva
