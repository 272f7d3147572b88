// One panel as the exchange line describes it.
#pragma once

#include <array>

namespace korva::laminated {

inline constexpr int kMostRows = 9;
inline constexpr int kSides = 2;  // 0 first, 1 second

// Loading conditions of the model.
enum Loading : int { kDevelopmentOnly = 1, kActiveGob, kOneSideGob, kTwoSideGobs };

// What lies on one side of the panel: behind the barrier pillar, or behind a bleeder row beside it, a gob.
struct Side {
  double Extent = 0;         // of the side gob, away from the panel
  double Barrier = 0;        // width of the barrier pillar
  double SlabCut = 0;        // taken from the barrier beside the active gob
  double AbutmentAngle = 0;  // degrees
  bool BleederRow = false;
  double BleederWidth = 0;  // of the row's pillars
};

// Lengths in ft or m, strength in psi or MPa, unit weight in pcf or kN/m3, angles in degrees.
struct Panel {
  bool Metric = false;
  double EntryHeight = 0;
  double DepthCover = 0;
  double EntryWidth = 0;
  double XcutSpacing = 0;
  double XcutAngle = 90;
  int Entries = 2;
  std::array<double, kMostRows> Centers{};  // 0 to Entries - 2 are in use
  Loading LoadCondition = kDevelopmentOnly;
  double ExtentActiveGob = 0;
  double AbutmentAngleActiveGob = 0;
  double CoalStrength = 0;
  double UnitWeight = 0;
  double BreadthAMZ = 0;
  bool RowA = false;  // the first row of pillars stays beside the active gob
  bool RowB = false;  // the last row does
  std::array<Side, kSides> Sides;

  int Rows() const { return Entries - 1; }
  // How many sides, from the first on, have a barrier and a gob.
  int GobSides() const { return LoadCondition < kOneSideGob ? 0 : LoadCondition - kActiveGob; }
};

}  // namespace korva::laminated
