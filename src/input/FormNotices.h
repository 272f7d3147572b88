// What the input form would refuse although the record check lets it pass.
#pragma once

#include <vector>

#include "core/FormNotice.h"
#include "core/Project.h"

namespace korva {

// One for each such thing, in the order of the form; empty for a project that the form would take. The
// numbers of such a panel are computed as the formulas give them, so a person should know.
std::vector<FormNotice> FormNotices(const Project& project);

}  // namespace korva
