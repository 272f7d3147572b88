// Where the pillars, barriers and gobs of a panel lie in plan.
#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "core/IndexedArray.h"
#include "core/Project.h"

namespace korva {

// All plan geometry is held in 32 bits, in ft or m by the unit system of the project. X runs across the
// entries, from 0 at the left edge of the first one; Y along them, away from the mouth of the panel.
struct PlanPoint {
  float X = 0;
  float Y = 0;
};

// Near left, near right, far right, far left.
using PlanCorners = std::array<PlanPoint, 4>;

inline constexpr int kPlanLines = kMaxEntries;
inline constexpr int kPlanRows = 10;
inline constexpr int kLastRow = 6;        // of the panel; rows 5 and 6 are left beside the active gob
inline constexpr int kRetreatRow = 4;     // the last row in front of the active gob
inline constexpr int kFirstSideLine = 0;  // bleeder rows C and D
inline constexpr int kSecondSideLine = 1;

template <class T>
using ByPlanPillar = IndexedArray<IndexedArray<T, 1, kPlanRows>, 1, kPlanLines>;  // [line i][row j]

// Outlines, in the order from left to right.
enum PlanGobIndex { kFirstGob = 1, kFirstBarrier, kSecondBarrier, kSecondGob };

std::string_view NameOf(PlanGobIndex gob);
// How far it reaches from side to side.
double WidthOf(PlanGobIndex gob, const Project& project);

struct PlanBleeder {
  int Side = kFirstSideLine;  // row C or D
  int Row = 0;                // j; rows below 1 lie in front of the panel's first row
  PlanCorners Corners;
};

struct PlanGeometry {
  IndexedArray<float, 1, kPlanLines> RowStart;
  ByPlanPillar<bool> PillarDrawn;
  ByPlanPillar<PlanCorners> Pillars;
  std::vector<PlanBleeder> Bleeders;
  IndexedArray<bool, kFirstGob, kSecondGob> GobDrawn;
  // Gobs from the near left corner on, barriers from the near corner at their gob; a slab cut adds the two
  // corners of its step.
  IndexedArray<std::vector<PlanPoint>, kFirstGob, kSecondGob> Gobs;
  std::vector<PlanPoint> ActiveGob;  // empty if there is none
  // In front of the active gob, or of where it will be; empty for development. It ends with the panel's mouth
  // where its breadth goes beyond that.
  std::vector<PlanPoint> ActiveMiningZone;
  bool ZoneCutOff = false;
  float RowTop = 0;  // the greatest far Y of row 6
  float GobTop = 0;  // common top of barriers and gobs
};

// What the geometry takes besides the project.
struct PlanOptions {
  IndexedArray<float, 1, kPlanLines> PlotXcutSpacing;  // [line i], for angles other than 90 degrees
  bool SchematicGobs = true;                           // side gobs twice as wide as their barriers
};

// The line in which the chevron of angled crosscuts has its lowest point, and those right of it start.
int MiddleLine(const Project& project);

// Sine of the crosscut angle; 1 for an angle of exactly 0.
double CrosscutSine(const Project& project);

// Lays out the panel. Run-time error 6 or 11 if a coordinate cannot be had, 9 for more than 10 entries.
PlanGeometry ComputePlan(const Project& project, const PlanOptions& options);

}  // namespace korva
