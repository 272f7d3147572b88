// What plans and schematics call the things that they show.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/Drawing.h"

namespace korva {

inline constexpr std::string_view kZoneName = "Active mining zone";
inline constexpr std::string_view kRetreatNote = "Retreat from top to bottom";
inline constexpr std::string_view kNotToScale = ", not to scale";

// Up to so many kinds need no legend.
inline constexpr std::size_t kKindsWithoutLegend = 2;

// The kinds of `drawing` with their names; `counts` says which polygons stand for their kind.
std::vector<LegendEntry> LegendOf(
    const Drawing& drawing, std::string zone = std::string(kZoneName), std::string leaveRow = "Row left",
    bool (*counts)(const DrawPolygon&) = [](const DrawPolygon&) { return true; });

}  // namespace korva
