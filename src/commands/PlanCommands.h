// The plan drawing of the working copy.
#pragma once

#include "core/Korva.h"
#include "plan/KORVAgraf.h"

namespace korva {

// What the plan view is asked to draw: the working copy with its dimensions, by the options. Values of the
// last run belong to it only if the results window asks. Without `full` it is outlines alone, with
// it has a title block of today.
PlanRequest PlanRequestOf(const Korva& korva, PlanOpener caller, bool full);

// Outlines of `draft`, which may still be in the making; nothing if it has no plan.
std::optional<PlanRequest> PreviewRequest(const Korva& korva, const Project& draft);

}  // namespace korva
