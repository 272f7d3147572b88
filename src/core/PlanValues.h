// What the last run says about the pillars, as the plan shows it.
#pragma once

#include <string>

#include "core/IndexedArray.h"
#include "core/Project.h"

namespace korva {

// What stands in the pillars of the plan, by its number in the command.
enum PillarPlot : int {
  kPlotDimensions = 1,
  kPlotStrength,
  kPlotCapacity,
  kPlotSideStress,
  kPlotTotalStress
};

// Which window opened the plan.
enum PlanOpener : int { kPlanFromForm = 1, kPlanFromResults };

// Strengths and stresses carry StressLabel, capacities LoadLabel. What a run did not compute is marked and
// shown nowhere.
struct PlanValues {
  bool HasStrength = false;
  IndexedArray<double, 1, kMaxRows> Strength;  // [pillar line]
  bool HasTraditional = false;                 // the following, which only the traditional model has
  IndexedArray<double, 1, kMaxRows> Capacity;
  IndexedArray<bool, 1, kMaxRows> HasSideStress;  // the model spreads a side load over three lines
  IndexedArray<double, 1, kMaxRows> SideStress;
  double TribStress = 0;
  bool HasRowStrength = false;
  IndexedArray<double, 0, 1> RowStrength;  // [row C, row D]
  IndexedArray<double, 0, 1> RowCapacity;
  std::string StressLabel;
  std::string LoadLabel;
};

}  // namespace korva
