// The warnings of the parameters form. They inform and refuse nothing.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/UnitSystem.h"

namespace korva {

// The warning for a field that has been left, or nothing for the value that the data base was analyzed with.
std::optional<std::string> AbutmentAngleWarning(std::string_view text);
std::optional<std::string> CoalStrengthWarning(std::string_view text, UnitSystem units);
std::optional<std::string> UnitWeightWarning(std::string_view text, UnitSystem units);

// The warnings for what a person clicks.
std::string AutomaticAMZWarning();
std::string AutomaticArchWarning();
std::string DeepCoverWarning();

inline constexpr std::string_view kRowAWithSlabCut =
    "Cannot leave Row A pillars when a slab cut is taken from the first side barrier";
inline constexpr std::string_view kRowBWithSlabCut =
    "Cannot leave Row B pillars when a slab cut is taken from the second side barrier";

}  // namespace korva
