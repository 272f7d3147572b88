// What the solver's benchmarks solve: a retreat panel between two side gobs, on any number of cells.
#pragma once

#include <cmath>
#include <vector>

#include "Calibration.h"
#include "Layout.h"

namespace korva::laminated {

// k u - A del^2 u = 1 on N by N square cells, A in units of the cell's area.
struct Problem {
  int N = 0;
  double A = 0;
  std::vector<double> Stiffness;  // row after row

  std::size_t Cells() const { return Stiffness.size(); }
};

// Seven entries on centers of 60 ft under 750 ft of cover, seen on 2560 by 2560 ft.
inline Panel BenchPanel() {
  Panel panel;
  panel.EntryHeight = 6;
  panel.DepthCover = 750;
  panel.EntryWidth = 20;
  panel.XcutSpacing = 70;
  panel.Entries = 7;
  panel.Centers.fill(60);
  panel.LoadCondition = kTwoSideGobs;
  panel.CoalStrength = 900;
  panel.UnitWeight = 162;
  panel.BreadthAMZ = 5 * std::sqrt(panel.DepthCover);
  panel.ExtentActiveGob = 800;
  panel.AbutmentAngleActiveGob = 21;
  for (Side& side : panel.Sides) {
    side = {.Extent = 800, .Barrier = 100, .SlabCut = 30, .AbutmentAngle = 21};
  }
  return panel;
}

inline Problem ProblemOn(int n) {
  constexpr double kExtent = 2560;
  const Layout layout = LayOut(BenchPanel());
  const double cell = kExtent / n;
  const Grid grid = {.X0 = layout.PanelWidth() / 2 - kExtent / 2,
                     .Y0 = -kExtent / 2,
                     .Cx = cell,
                     .Cy = cell,
                     .Nx = n,
                     .Ny = n};
  const double reach = layout.Length / cell;
  return {n, reach * reach, RetreatStiffness(layout, grid, Yield{})};
}

}  // namespace korva::laminated
