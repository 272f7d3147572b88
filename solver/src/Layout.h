// Where everything stands: the panel as pieces of ground with a stiffness each, and the grid they lie on.
#pragma once

#include <array>
#include <vector>

#include "Panel.h"
#include "Raster.h"

namespace korva::laminated {

// Axes: x across the entries from the center line of the first one; y along them, outby positive, 0 at the
// gob line, which lies on the center of a crosscut. Stiffness is relative to solid coal.

// How much of its stiffness each part that may be overloaded keeps. Rows are the pillars of bleeder rows.
struct Yield {
  std::array<double, kSides> Barrier{1, 1};    // outby the gob line; in development the whole barrier
  std::array<double, kSides> BesideGob{1, 1};  // the barrier's remnant beside the active gob
  std::array<double, kSides> Bleeder{1, 1};    // the bleeder row outby
  std::array<double, kSides> BleederBesideGob{1, 1};

  bool operator==(const Yield&) const = default;
};

struct Layout {
  Panel Given;
  double Length = 0;  // the overburden's length scale
  double Sine = 1;    // of the crosscut angle
  CrosscutLine Line;
  std::array<double, kMostRows + 1> EntryX{};  // center lines
  std::array<double, kSides> Rib{};            // outer ribs of the panel

  // The retreat case.
  double GobLeft = 0;
  double GobRight = 0;
  double GobStart = 0;  // along the entries, 0 or less: the inby rib of the crosscut at the gob line
  double GobEnd = 0;
  bool Retreats = false;  // there is an active gob
  double ActiveStiffness = 1;
  std::array<double, kSides> SideStiffness{1, 1};
  double RemnantLength = 0;

  double PanelWidth() const { return EntryX.at(static_cast<std::size_t>(Given.Rows())) - EntryX[0]; }
  double CrosscutHalf() const { return Given.EntryWidth / (2 * Sine); }  // half a crosscut along the entries
  double PillarWidth(int row) const {
    return Given.Centers.at(static_cast<std::size_t>(row)) - Given.EntryWidth;
  }
  double PillarLengthAlong() const { return Given.XcutSpacing - Given.EntryWidth / Sine; }
  // Share of the panel that is mined in development.
  double Extraction() const;

  // The pillar of a row, row 0 the first outby the gob line along the entries.
  Ground Pillar(int row, int along) const;
  // The barrier of a side between two places along the entries, less `cut` at the panel.
  Ground BarrierBetween(int side, double y0, double y1, double cut = 0) const;
  // A pillar of the bleeder row of a side.
  Ground BleederPillar(int side, int along) const;
  // Places of the edges beyond a side's barrier, from the panel outward: the bleeder row's two edges and
  // where the gob begins.
  struct Beyond {
    double BleederNear = 0;
    double BleederFar = 0;
    double Gob = 0;
  };
  Beyond BeyondBarrier(int side) const;
  // -1 for the first side and 1 for the second: the way outward.
  static double Outward(int side) { return side == 0 ? -1 : 1; }
};

Layout LayOut(const Panel& panel);

// Options of the grid; the defaults are the program's.
struct GridRule {
  double Margin = 6;         // lengths of solid ground around what counts
  double CellFactor = 1;     // scales the rule's cell size
  double MostCells = 1.0e6;  // beyond it the cells grow
};

Grid GridFor(const Layout& layout, const GridRule& rule = {});

// The stiffness of every cell in each case.
std::vector<double> DevelopmentStiffness(const Layout& layout, const Grid& grid, const Yield& yield);
std::vector<double> RetreatStiffness(const Layout& layout, const Grid& grid, const Yield& yield);

}  // namespace korva::laminated
