// The stored form of a project description.
#pragma once

#include <string>

#include "core/Project.h"

namespace korva {

// Rewrites the description in its stored form: blank lines dropped, lines of 61 or more characters broken to
// pieces of at most 60, lines joined by CR LF without one at the end; and sets the line count, 2 plus the
// lines.
void NormalizeDescription(StoredProject& project);

}  // namespace korva
