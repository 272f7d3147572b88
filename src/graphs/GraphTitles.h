// Titles, labels and format of the parametric graphs, and what of a sweep is shown.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/GraphData.h"
#include "core/Project.h"
#include "core/Settings.h"

namespace korva {

// The colours of curves 1 to 4, as red, green, blue.
inline constexpr std::array<std::uint32_t, kMostCurves> CurveColours = {0x0000FF, 0xCD5C5C, 0x000000,
                                                                        0x006400};

// Which of the two Y titles a graph has.
constexpr int YTitleOf(int graph) {
  return graph > kXcutSpacingGraph ? 1 : 0;
}

// All titles in the unit system `units`, and the default format, over those of `graph`.
void SetDefaultTitles(GraphSettings& graph, UnitSystem units);

// Makes titles and format anew if those of graph `index` were never made, or for another unit system. A
// default X title without its unit gets that: an axis always tells it.
void PrepareTitles(GraphSettings& graph, int index, UnitSystem units);

// The curves of a sweep that are shown: one alone, of the development, for a panel without an active gob.
int DisplayCurves(const Project& project, const SweepData& data);

// The label of curve 1 to 4.
std::string_view CurveLabel(int curve);

}  // namespace korva
