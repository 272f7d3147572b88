// What the check before a calculation and the input form refuse a panel with. The two differ on purpose in
// some of their words and limits.
#pragma once

#include <string_view>

namespace korva {

inline constexpr std::string_view kInvalidEntryHeight = "Invalid entry height";
inline constexpr std::string_view kInvalidDepthCover = "Invalid depth of cover";
inline constexpr std::string_view kInvalidXcutAngle = "Invalid crosscut angle";  // of the check alone
inline constexpr std::string_view kInvalidEntryWidth = "Invalid entry width";
inline constexpr std::string_view kInvalidXcutSpacing = "Invalid crosscut spacing";
inline constexpr std::string_view kInvalidBreadthAMZ = "Invalid breadth of AMZ";
inline constexpr std::string_view kInvalidWidthRowC = "Invalid Pillar Width for Row C";
inline constexpr std::string_view kInvalidWidthRowD = "Invalid Pillar Width for Row D";
inline constexpr std::string_view kInvalidExtentActiveGob = "Invalid extent of active gob";
inline constexpr std::string_view kInvalidAngleActiveGob = "Invalid abutment angle of active gob";
inline constexpr std::string_view kInvalidExtentFirstGob = "Invalid extent of first gob";
inline constexpr std::string_view kInvalidAngleFirstGob = "Invalid abutment angle of first gob";
inline constexpr std::string_view kInvalidBarrierFirstGob = "Invalid extent of barrier of first gob";
inline constexpr std::string_view kInvalidSlabcutFirstGob =
    "Invalid extent of slab cut in barrier of first gob";
inline constexpr std::string_view kInvalidExtentSecondGob = "Invalid extent of second gob";
inline constexpr std::string_view kInvalidAngleSecondGob = "Invalid abutment angle of second gob";
inline constexpr std::string_view kInvalidBarrierSecondGob = "Invalid extent of barrier of second gob";
inline constexpr std::string_view kInvalidSlabcutSecondGob =
    "Invalid extent of slab cut in barrier of second gob";
inline constexpr std::string_view kSlabCutAtRowA =
    "Cannot take slab cut from first side barrier when Row A pillars are left";
inline constexpr std::string_view kSlabCutAtRowB =
    "Cannot take slab cut from second side barrier when Row B pillars are left";

// Of the form, where the row is chosen after the slab cut.
inline constexpr std::string_view kRowAWithSlabCut =
    "Cannot leave Row A pillars when a slab cut is taken from the first side barrier";
inline constexpr std::string_view kRowBWithSlabCut =
    "Cannot leave Row B pillars when a slab cut is taken from the second side barrier";

// Of the check, and of the form.
inline constexpr std::string_view kInvalidCoalStrength = "Invalid coal strength";
inline constexpr std::string_view kInvalidInSituStrength = "Invalid in situ coal strength";
inline constexpr std::string_view kInvalidUnitWeight = "Invalid unit weight";
inline constexpr std::string_view kInvalidOverburdenWeight = "Invalid overburden unit weight";
inline constexpr std::string_view kInvalidArchPercent = "Invalid Arch Percent";
inline constexpr std::string_view kInvalidArchFactor = "Invalid Arch Factor";

}  // namespace korva
