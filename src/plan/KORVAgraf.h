// The plan drawing: the panel to scale, with its dimensions and what the pillars bear.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Drawing.h"
#include "core/PlanValues.h"
#include "core/Settings.h"
#include "core/StrondResults.h"
#include "plan/PlanGeometry.h"
#include "reports/OutputResults.h"

namespace korva {

// Names of plots, in the menu and as titles.
inline constexpr const char* kStrengthPlot = "Unit Pillar Strength";
inline constexpr const char* kCapacityPlot = "Pillar Load Bearing Capacity";

inline constexpr std::string_view kInvalidPillars = "Invalid Pillar Dimensions";

// The height of texts as a share of the drawing's side, where no window says otherwise.
inline constexpr double kPlanTextShare = 1.0 / 52;

// What tells one plan on paper from another; without a project nothing of it is drawn.
struct PlanTitleBlock {
  std::string Project;  // its file, without the folder
  std::string Title;
  std::string Model;
  std::string Date;
};

struct PlanRequest {
  Project ProjectCalc;
  UnitSystem Units = kEnglish;
  PlanOptions Geometry;
  OptionSettings Options;  // which dimensions are drawn
  PillarPlot PlotType = kPlotDimensions;
  PlanOpener PlotCaller = kPlanFromForm;
  std::optional<PlanValues> Values;  // of the last run
  bool Full = true;                  // false: outlines alone
  double TextShare = kPlanTextShare;
  PlanTitleBlock Title;
  // Above 1 the panel is laid out for a view that enlarges it and keeps the height of texts.
  double Zoom = 1;
};

struct PlanPillar {
  int Line = 0;  // i
  int Row = 0;   // j
  PlanCorners Corners;
};

struct PlanGob {
  PlanGobIndex Index = kFirstGob;
  std::vector<PlanPoint> Outline;
};

// A plan in its square world, from 0 to PlanWidth and PlanHeight, which are equal.
struct Plan {
  float PlanWidth = 0;
  float PlanHeight = 0;
  std::vector<PlanPillar> Pillars;
  std::vector<PlanBleeder> Bleeders;
  std::vector<PlanGob> Gobs;
  std::vector<PlanPoint> ActiveGob;
  std::vector<PlanPoint> ActiveMiningZone;
  Drawing Panel;        // the same as records, with all lines and texts
  Drawing Frame;        // caption above, legend, notes, scale and title block below
  double PanelLow = 0;  // Y between which nothing of the frame stands
  double PanelHigh = 0;
};

// Panel and frame as one drawing.
Drawing PictureOf(const Plan& plan);

// Draws the plan. Nothing if the panel has no extent ("Invalid Pillar Dimensions"). Run-time error 6 or 11 if
// a coordinate cannot be had.
std::optional<Plan> DrawPlan(const PlanRequest& request);

// The caption of a plot type, with the units of its values.
std::string PlanCaption(const PlanRequest& request);

// The size of the pillars of line `i`, across and along the entries; swapped in sense for a pillar that is
// longer across than along.
struct PillarSize {
  double Width = 0;
  double Length = 0;
};
PillarSize PillarSizeOf(const PlanRequest& request, int i);

// The dimensions that a pillar's strength comes from, the least and the greatest, as page 3 has them. At
// angled crosscuts they may differ from the size across and along.
PillarSize StrengthSizeOf(const Project& project, int i);

// Whether they differ for the pillars of line `i` in more than their order.
bool HasOtherStrengthSize(const PlanRequest& request, int i);

// What stands at a point of the plan's world, in a few lines: a pillar with its row, size, and strength and
// capacity if they are known; a barrier or a gob with its extent. Empty where nothing stands.
std::string PlanHintAt(const PlanRequest& request, const Plan& plan, DrawPoint point);

// What the last run says about the pillars, in output units. `run` is a finished traditional calculation, or
// nothing; `laminated` the results of a laminated run, or nothing, and the strengths come from it then.
PlanValues PlanValuesOf(const Calculation* run, const StrondResults* laminated, UnitSystem units,
                        const OutputUnits& output);

}  // namespace korva
