// Panels and grids for the solver's tests.
#pragma once

#include <cmath>
#include <vector>

#include "Factors.h"
#include "Membrane.h"
#include "Raster.h"

namespace korva::laminated {

// Entries 20 ft wide, pillars 6 ft high under `depth` ft of cover; an active gob and side gobs of 1000 ft.
inline Panel TestPanel(double depth, double center, double spacing, int entries, Loading condition) {
  Panel panel;
  panel.EntryHeight = 6;
  panel.DepthCover = depth;
  panel.EntryWidth = 20;
  panel.XcutSpacing = spacing;
  panel.Entries = entries;
  for (int row = 0; row < panel.Rows(); ++row) {
    panel.Centers.at(static_cast<std::size_t>(row)) = center;
  }
  panel.LoadCondition = condition;
  panel.CoalStrength = 900;
  panel.UnitWeight = 162;
  panel.BreadthAMZ = 5 * std::sqrt(depth);
  if (condition >= kActiveGob) {
    panel.ExtentActiveGob = 1000;
    panel.AbutmentAngleActiveGob = 21;
  }
  for (int side = 0; side < panel.GobSides(); ++side) {
    panel.Sides.at(static_cast<std::size_t>(side)) = {.Extent = 1000, .Barrier = 120, .AbutmentAngle = 21};
  }
  return panel;
}

// A grid of square cells on which pieces of ground are laid and solved.
struct Bed {
  Grid Cells;
  std::vector<double> Stiffness;
  std::vector<double> Solution;
  SolveOutcome Outcome;

  explicit Bed(const Grid& grid) : Cells(grid), Stiffness(grid.Cells()) {}

  void Lay(const Ground& ground, double stiffness) {
    AddStiffness(Stiffness, Cells, CrosscutLine(), ground, stiffness);
  }
  void Solve(double length, double tolerance = 1e-10) {
    const double a = length / Cells.Cx;
    const double b = length / Cells.Cy;
    Membrane membrane(Cells.Nx, Cells.Ny, a * a, b * b);
    membrane.SetStiffness(Stiffness);
    Outcome = membrane.Solve({.Tolerance = tolerance});
    Solution = membrane.Solution();
  }
  // The integral of u over a piece of ground.
  double Integral(const Ground& ground) const {
    return IntegralOver(Solution, Cells, CrosscutLine(), ground);
  }
};

}  // namespace korva::laminated
