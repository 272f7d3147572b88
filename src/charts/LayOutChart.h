// Where everything in a chart stands, by the size that it has: its drawing records, and what a pointer needs.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "charts/Chart.h"
#include "core/Picture.h"

namespace korva {

// The size of a chart's file that nobody chose another size for.
inline constexpr PictureSize kChartSheet = {760, 520};

struct AxisRange {
  double Low = 0;
  double High = 1;
};

// The part of a chart that is seen; without it, all of it.
struct ChartWindow {
  AxisRange X;
  AxisRange Y;
};
ChartWindow WholeOf(const Chart& chart);

// A point of a curve that has a value, where it stands.
struct PlacedPoint {
  std::size_t Curve = 0;
  std::size_t Index = 0;
  DrawPoint At;
};

struct ChartLayout {
  Picture Drawn;
  PictureBox Plot;
  ChartWindow Seen;
  std::vector<PlacedPoint> Points;
  PictureBox Title;  // what a click on a title falls into
  PictureBox XTitle;
  PictureBox YTitle;
  std::optional<PictureBox> Legend;
  bool LegendOmitted = false;  // for want of room

  DrawPoint Place(double x, double y) const;        // in the picture
  DrawPoint ValueAt(const DrawPoint& place) const;  // on the axes
};

// The chart in `size`, of which it never leaves anything outside: texts shrink, are cut off, or stay away
// where they have no room, and none stands over another. The legend stands in a corner in which nothing is
// drawn, else beside the plot, else below it, else nowhere.
ChartLayout LayOutChart(const Chart& chart, PictureSize size, const TextMeasure& measure,
                        const std::optional<ChartWindow>& seen = {});

}  // namespace korva
