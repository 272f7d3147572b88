// A project's change to the other unit system.
#pragma once

#include "core/Project.h"

namespace korva {

// Changes all values to the unit system `targetUnits`, each rounded to 2 decimals half to even (unit weight
// in metric units to 3). It does not look at the present units: offering only the other system is the
// caller's part. Run-time error 6 if a value leaves its range.
void ConvertProjectUnits(StoredProject& project, UnitSystem targetUnits);

}  // namespace korva
