// What a plan is made of, in the panel's own coordinates.
#pragma once

#include <array>
#include <string_view>

#include "plan/KORVAgraf.h"
#include "plan/PlanPen.h"

namespace korva {

// By PlanGobIndex, the first one first.
inline constexpr std::array<std::string_view, 4> kGobNames = {"First side gob", "First side barrier",
                                                              "Second side barrier", "Second side gob"};

// Gobs and barriers, then pillars.
void AddOutlines(PlanPen& pen, const PlanRequest& request, const PlanGeometry& geometry);

// The dimensions that the options ask for, and the names of the gobs.
void AddDimensions(PlanPen& pen, const PlanRequest& request, const PlanGeometry& geometry);

// What stands in the pillars.
void AddPillarTexts(PlanPen& pen, const PlanRequest& request, const PlanGeometry& geometry);

// The width of the pillars of a bleeder row.
double BleederWidth(const Project& project, int side);

}  // namespace korva
