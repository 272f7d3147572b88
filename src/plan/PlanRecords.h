// What a plan is made of, in the panel's own coordinates.
#pragma once

#include "plan/KORVAgraf.h"
#include "plan/PlanPen.h"

namespace korva {

// Gobs and barriers, then pillars.
void AddOutlines(PlanPen& pen, const PlanRequest& request, const PlanGeometry& geometry);

// The dimensions that the options ask for.
void AddDimensions(PlanPen& pen, const PlanRequest& request, const PlanGeometry& geometry);

// The names of the gobs, and the dimension of the active one.
void AddGobTexts(PlanPen& pen, const PlanRequest& request, const PlanGeometry& geometry);

// The numbers of entries and pillar lines, below all that has been drawn of the panel.
void AddNumbers(PlanPen& pen, const PlanRequest& request, const PlanGeometry& geometry);

// What stands in the pillars.
void AddPillarTexts(PlanPen& pen, const PlanRequest& request, const PlanGeometry& geometry);

// Where the dimensions of barriers and gobs stand.
inline double GobDimensionHeight(const Project& project) {
  return project.XcutSpacing / 2;
}

// The width of the pillars of a bleeder row.
double BleederWidth(const Project& project, int side);

}  // namespace korva
