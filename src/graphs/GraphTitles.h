// Titles, labels and format of the parametric graphs, and what of a sweep is shown.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/GraphData.h"
#include "core/Project.h"
#include "core/Settings.h"
#include "core/Tables.h"

namespace korva {

// The colours of curves 1 to 4, as red, green, blue.
inline constexpr std::array<std::uint32_t, kMostCurves> CurveColours = {0x0000FF, 0xCD5C5C, 0x000000,
                                                                        0x006400};

// The parameter of a graph, without its unit.
constexpr std::string_view ParameterName(GraphKind graph) {
  return DefaultXAxisTitles[static_cast<std::size_t>(graph)];
}

// Which of the two Y titles a graph has.
constexpr int YTitleOf(GraphKind graph) {
  return IsBarrierGraph(graph) ? 1 : 0;
}

// All titles in the unit system `units`, and the default format, over those of `settings`.
void SetDefaultTitles(GraphSettings& settings, UnitSystem units);

// Makes titles and format if those of `graph` were never made, or for another unit system. A default X
// title without its unit gets that: an axis always tells it.
void PrepareTitles(GraphSettings& settings, GraphKind graph, UnitSystem units);

// Whether the panel has the barrier that a graph is about; graphs of no barrier need none.
bool HasBarrierOf(GraphKind graph, const Project& project);

// The curves of a sweep that are shown: one alone, of the development, for a panel without an active gob.
int DisplayCurves(const Project& project, const SweepData& data);

// The label of curve 1 to 4.
std::string_view CurveLabel(int curve);

}  // namespace korva
