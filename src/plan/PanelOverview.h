// A small picture of a panel to scale, for a glance.
#pragma once

#include <optional>

#include "core/Drawing.h"
#include "plan/KORVAgraf.h"

namespace korva {

// The outlines of the plan asked for in their least box, with a legend where more than two kinds stand
// together and a note on what is not to scale. Nothing if the panel has no extent or a pillar without
// one. Run-time errors as of DrawPlan.
std::optional<Drawing> PanelOverview(PlanRequest request);

}  // namespace korva
