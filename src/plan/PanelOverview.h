// A small picture of a panel to scale, for a glance.
#pragma once

#include <optional>

#include "core/Drawing.h"
#include "plan/KORVAgraf.h"

namespace korva {

// The outlines of the panel asked for, with the active mining zone if the request is full, in their least
// box; a legend where more than two kinds stand together, and a note on what is not to scale. Nothing if a
// pillar has no extent. Run-time errors as of DrawPlan.
std::optional<Drawing> PanelOverview(const PlanRequest& request);

}  // namespace korva
