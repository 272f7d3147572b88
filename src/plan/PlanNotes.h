// What a reader of a plan must know about its numbers.
#pragma once

#include <string>
#include <vector>

#include "plan/KORVAgraf.h"

namespace korva {

// A sentence each: which size of the pillars is shown where the strength takes another one, and that
// dimensions are rounded where one of those that are drawn is.
std::vector<std::string> PlanNotes(const PlanRequest& request);

}  // namespace korva
