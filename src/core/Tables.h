// Text tables that reports, forms and messages share.
#pragma once

#include <array>
#include <string_view>

#include "core/OverburdenModel.h"
#include "core/UnitSystem.h"

namespace korva {

// The kind of a quantity, a row of the unit label table.
enum class UnitKind {
  kLength = 0,
  kStrength = 1,
  kUnitWeight = 2,
  kMetricStress = 4,
  kMetricLoad = 5,
};

// The label after a field's name in unit system `units`, such as " (ft)".
std::string_view UnitLabel(UnitKind kind, UnitSystem units);

// A label without its leading blank and without its parentheses: "ft".
std::string_view BareUnit(std::string_view label);

// The tables keep the names that the whole program knows them by.

// Captions of the choice of units, by unit system.
inline constexpr std::array<std::string_view, 2> UnitSummary = {"ft, in, lbs, psi, pcf",
                                                                "m, cm, kN, MPa, kN/m3"};

// By LoadingCondition 0 to 3.
inline constexpr std::array<std::string_view, 4> LoadingConditionTitles = {
    "DEVELOPMENT LOAD (NO NEARBY GOB)", "ONE ACTIVE RETREAT SECTION", "ONE ACTIVE SECTION AND ONE SIDE GOB",
    "ONE ACTIVE SECTION AND TWO SIDE GOBS"};

// By load case; nobody reads them.
inline constexpr std::array<std::string_view, 6> LoadCaseTitles = {"TRIBUTARY AREA",       "ACTIVE GOB",
                                                                   "DEVELOPMENT & 1S GOB", "ACTIVE + 1S GOB",
                                                                   "DEVELOPMENT & 2S GOB", "ACTIVE + 2S GOB"};

// By side, the first side gob first.
inline constexpr std::array<std::string_view, 2> BarrierTitles = {"FIRST SIDE GOB BARRIER",
                                                                  "SECOND SIDE GOB BARRIER"};
inline constexpr std::array<std::string_view, 2> RemnantTitles = {"FIRST SIDE GOB REMNANT",
                                                                  "SECOND SIDE GOB REMNANT"};
inline constexpr std::array<std::string_view, 2> SideTitles = {"First Side", "Second Side"};
inline constexpr std::array<std::string_view, 2> FirstSecond = {"First", "Second"};
inline constexpr std::array<std::string_view, 2> RowLetters = {"C", "D"};
inline constexpr std::array<std::string_view, 2> BleederNotes = {
    " *Includes contribution from row 'C' bleeder pillar",
    "**Includes contribution from row 'D' bleeder pillar"};

// By case, development first; those of the models also by model, the traditional one first.
inline constexpr std::array<std::string_view, 2> StageTitles = {"Development", "Retreat"};
inline constexpr std::array<std::string_view, 4> ModelStageTitles = {
    "Development (KORVA)", "Retreat (KORVA)", "Development (KORVA-STROND)", "Retreat (KORVA-STROND)"};

// Of the parametric graphs, by their index; an X title is followed by its unit. The Y titles are of graphs 0
// to 3 and 4 to 6.
inline constexpr std::array<std::string_view, 7> DefaultXAxisTitles = {
    "Entry Height",           "Depth of Cover",          "Crosscut Angle", "Crosscut Spacing",
    "Width of First Barrier", "Width of Second Barrier", "Depth of Cover"};
inline constexpr std::array<std::string_view, 2> DefaultYAxisTitles = {"Stability Factor",
                                                                       "Barrier Stability Factor"};
// By case and number of side gobs: development with one, with two, retreat with one, with two.
inline constexpr std::array<std::string_view, 4> SideGobNotes = {
    "*Development loading includes one side gob.", "*Development loading includes two side gobs.",
    "*Retreat loading includes one side gob.", "*Retreat loading includes two side gobs."};

inline constexpr std::array<std::string_view, 2> NoYes = {"no", "yes"};

// Names for people. A model of another number than the three counts as the laminated one.
inline constexpr std::array<std::string_view, 3> kModelNames = {"traditional", "laminated", "compared"};
std::string_view ModelName(OverburdenModel model);
std::string_view UnitSystemName(UnitSystem units);

}  // namespace korva
