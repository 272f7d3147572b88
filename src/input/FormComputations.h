// The values that the parameters form computes from its fields while the user types.
#pragma once

#include <cstdint>
#include <string>

#include "core/Project.h"

namespace korva {

// The project as the form shows it: what the computations read, through its general text, and centers that
// are 0 replaced by the first one if that is not 0.
Project ShownInForm(const Project& project);

// Breadth of the active mining zone, 5 times the square root of the depth in feet, as a whole number of ft or
// m (ties to even). Run-time error 5 for a negative depth, 6 beyond the 32-bit range.
std::int32_t Calc_AMZ(double depth, UnitSystem units);

// The pressure arch factor, two decimals. Unlike the calculation's own it takes metric depth and width in
// feet, with 80 m where the English one has 80 ft. Run-time error 5 for a ratio without a logarithm.
float Calc_Arch(const Project& fields, UnitSystem units);

// The pressure arch factor of a panel in feet as it is, not rounded: from the general texts of its depth and
// of the sum of its centers. Errors as Calc_Arch has them.
float UnroundedArch(const Project& project);

// The average extraction ratio in percent, "##0.0", or an empty text while angle, spacing or panel area is 0.
std::string Calc_Ext_Ratio(const Project& fields);

}  // namespace korva
