// The parameters form, a row a field: what is shown of it, what it takes, and the record's member. Controls,
// tab order, tool tips, plain checks, warnings, filling and storing follow from the rows; a further number is
// a row here, a member of the record and a line of the project file's table.
#pragma once

#include <array>
#include <cstddef>
#include <limits>
#include <optional>
#include <string_view>
#include <variant>

#include "core/DataBase.h"
#include "core/Limits.h"
#include "core/Project.h"
#include "core/Refusals.h"
#include "core/Tables.h"

namespace korva {

enum class ParameterTab { kStandardTab, kDefaultsTab, kRetreatTab };

// The frames that hold fields, in the order of the form.
enum class ParameterFrame { kGeometry, kLoading, kZone, kArch, kActiveGob, kFirstGob, kSecondGob, kBleeder };

struct FrameRow {
  const char* Control;
  const char* Title;
  ParameterTab Tab;
};
inline constexpr std::array<FrameRow, 8> kParameterFrames = {{
    {"Frame1", "Panel geometry", ParameterTab::kStandardTab},
    {"Frame2", "Loading parameters", ParameterTab::kDefaultsTab},
    {"Frame3", "Active Mining Zone", ParameterTab::kDefaultsTab},
    {"Frame4", "Pressure Arch factor", ParameterTab::kDefaultsTab},
    {"fraActive", "Active Gob Parameters", ParameterTab::kRetreatTab},
    {"fraFirst", "First Side Gob Parameters", ParameterTab::kRetreatTab},
    {"fraSecond", "Second Side Gob Parameters", ParameterTab::kRetreatTab},
    {"fraBleeder", "Bleeder Pillars", ParameterTab::kRetreatTab},
}};
constexpr const FrameRow& RowOf(ParameterFrame frame) {
  return kParameterFrames[static_cast<std::size_t>(frame)];
}

using NumberMember = std::variant<double Project::*, float Project::*>;

// What a check box does to a number: it has it computed, allows none above 0, or makes it count.
enum class FlagRole { kComputes, kExcludes, kShows };

struct FlagField {
  int Project::*Member;
  ParameterFrame Frame;
  const char* Control;
  const char* Caption;
  const char* Meaning;
  FlagRole Role;
  NumberMember Number;
  std::string_view Warning = {};  // where the number is no longer computed, or is not 0
};
inline constexpr auto kFlagFields = std::to_array<FlagField>({
    {&Project::AMZAuto, ParameterFrame::kZone, "chkAMZ", "Set AMZ automatically",
     "5 times the square root of the depth of cover in feet", FlagRole::kComputes, &Project::BreadthAMZ,
     kBreadthWarning},
    {&Project::ArchAuto, ParameterFrame::kArch, "chkArch", "Set arch factor automatically",
     "From the ratio of depth of cover to panel width", FlagRole::kComputes, &Project::ArchFactor,
     kArchFactorWarning},
    {&Project::RowA, ParameterFrame::kBleeder, "chkRowA", "Row A",
     "Leave the pillar row beside the first side in place", FlagRole::kExcludes, &Project::SlabcutFirstGob,
     kRowAWithSlabCut},
    {&Project::RowB, ParameterFrame::kBleeder, "chkRowB", "Row B",
     "Leave the pillar row beside the second side in place", FlagRole::kExcludes, &Project::SlabcutSecondGob,
     kRowBWithSlabCut},
    {&Project::RowC, ParameterFrame::kBleeder, "chkRowC", "Row C",
     "Leave a bleeder row beside the first barrier, in the first side gob", FlagRole::kShows,
     &Project::WidthRowC},
    {&Project::RowD, ParameterFrame::kBleeder, "chkRowD", "Row D",
     "Leave a bleeder row beside the second barrier, in the second side gob", FlagRole::kShows,
     &Project::WidthRowD},
});

// The place of a check box in its table, by the record's member. A member without a row does not compile.
struct FlagIndex {
  consteval FlagIndex(int Project::*member) : At(0) {
    while (kFlagFields.at(At).Member != member) {
      ++At;
    }
  }

  std::size_t At;
};

// What a field takes. Bounds that other fields set are the check's part, and stand here as words.
struct AcceptedRange {
  double Least = 0;
  bool IncludesLeast = false;
  double Greatest = std::numeric_limits<double>::infinity();
  const char* Words = nullptr;
};
inline constexpr AcceptedRange kAboveZero;
inline constexpr AcceptedRange kZeroOrMore = {0, true};
inline constexpr AcceptedRange kWiderThanEntry = {.Words = "more than the entry width"};
inline constexpr AcceptedRange kXcutAngles = {kLeastXcutAngle, true, kGreatestAngle};
inline constexpr AcceptedRange kArchFactors = {kLeastArchFactor, true, kGreatestArchFactor};
inline constexpr AcceptedRange kAbutmentAngles = {0, true, kGreatestAngle};
inline constexpr AcceptedRange kSlabCuts = {.IncludesLeast = true,
                                            .Words = "0 to the width of the barrier pillar"};

enum class RefusalKind { kRange, kLogic };

inline constexpr std::optional<UnitKind> kNoUnit;

// A box of one number.
struct NumberField {
  NumberMember Member;
  ParameterFrame Frame;
  const char* Control;
  const char* Label;  // the name of the label that stands before it
  const char* Caption;
  int Length;  // greatest length that can be typed
  std::optional<UnitKind> Unit;
  const char* Meaning;
  const AcceptedRange& Range;
  std::string_view Refusal = {};            // the general words of a range check where there is none
  const DataBaseValue* DataBase = nullptr;  // leaving the box with another value warns
  std::string_view Pattern = {};            // of the shown number; its general form where there is none
  RefusalKind Kind = RefusalKind::kRange;
};

inline constexpr std::string_view kGeneralForm;
inline constexpr std::string_view kShortNumber = "#.##";
inline constexpr const char* kSlabMeaning = "How deep the barrier pillar is cut from the panel's side";

inline constexpr auto kNumberFields = std::to_array<NumberField>({
    {&Project::EntryHeight, ParameterFrame::kGeometry, "txtEntryHeight", "Label1", "Entry height", 5,
     UnitKind::kLength, "Height of the entries", kAboveZero, kInvalidEntryHeight},
    {&Project::DepthCover, ParameterFrame::kGeometry, "txtDepthCover", "Label2", "Depth of cover", 10,
     UnitKind::kLength, "Depth of the seam below the surface", kAboveZero, kInvalidDepthCover},
    {&Project::XcutAngle, ParameterFrame::kGeometry, "txtXcutAngle", "Label3", "Crosscut angle (deg)", 5,
     kNoUnit, "Angle between entries and crosscuts", kXcutAngles},
    {&Project::EntryWidth, ParameterFrame::kGeometry, "txtEntryWidth", "Label4", "Entry width", 5,
     UnitKind::kLength, "Width of entries and crosscuts", kAboveZero, kInvalidEntryWidth},
    {&Project::XcutSpacing, ParameterFrame::kGeometry, "txtXcutSpacing", "Label5", "Crosscut spacing", 10,
     UnitKind::kLength, "Distance from center to center of two neighbouring crosscuts", kWiderThanEntry,
     kInvalidXcutSpacing},
    {&Project::CoalStrength, ParameterFrame::kLoading, "txtCoalStrength", "Label7", "In situ coal strength",
     6, UnitKind::kStrength, "Strength of the coal in place", kAboveZero, kInvalidInSituStrength,
     &kDataBaseStrength, kShortNumber},
    {&Project::UnitWeight, ParameterFrame::kLoading, "txtUnitWeight", "Label8", "Overburden unit weight", 6,
     UnitKind::kUnitWeight, "Weight of the rock above the seam", kAboveZero, kInvalidOverburdenWeight,
     &kDataBaseUnitWeight, kShortNumber},
    {&Project::BreadthAMZ, ParameterFrame::kZone, "txtBreadthAMZ", "label9", "Breadth of AMZ", 6,
     UnitKind::kLength, "Breadth of the active mining zone along the entries", kAboveZero,
     kInvalidBreadthAMZ},
    {&Project::ArchFactor, ParameterFrame::kArch, "txtArchFactor", "Label12", "Arch factor", 5, kNoUnit,
     "Share of the overburden that the panel carries", kArchFactors, kInvalidArchFactor},
    {&Project::ExtentActiveGob, ParameterFrame::kActiveGob, "txtExtentActiveGob", "lblExtActive",
     "Extent of active gob", 5, UnitKind::kLength, "Extent of the gob behind the retreat line", kZeroOrMore,
     kInvalidExtentActiveGob},
    {&Project::AbutmentAngleActiveGob, ParameterFrame::kActiveGob, "txtAbutmentAngleActiveGob", "Label37",
     "Abutment angle for active gob (deg)", 5, kNoUnit, "Angle of the overburden that bridges the active gob",
     kAbutmentAngles, kInvalidAngleActiveGob, &kDataBaseAngle},
    {&Project::ExtentFirstGob, ParameterFrame::kFirstGob, "txtExtentFirstGob", "Label16",
     "Extent of first side gob", 5, UnitKind::kLength, "Extent of the first side gob", kZeroOrMore,
     kInvalidExtentFirstGob},
    {&Project::AbutmentAngleFirstGob, ParameterFrame::kFirstGob, "txtAbutmentAngleFirstGob", "Label17",
     "Abutment angle for first side gob (deg)", 5, kNoUnit,
     "Angle of the overburden that bridges the first side gob", kAbutmentAngles, kInvalidAngleFirstGob,
     &kDataBaseAngle},
    {&Project::BarrierFirstGob, ParameterFrame::kFirstGob, "txtBarrierFirstGob", "Label18",
     "Barrier pillar width for first side gob", 5, UnitKind::kLength,
     "Width of the barrier pillar between panel and first side gob", kZeroOrMore, kInvalidBarrierFirstGob},
    {&Project::SlabcutFirstGob, ParameterFrame::kFirstGob, "txtSlabcutFirstGob", "Label19",
     "Depth of slab cut in barrier pillar", 5, UnitKind::kLength, kSlabMeaning, kSlabCuts,
     kInvalidSlabcutFirstGob},
    {&Project::ExtentSecondGob, ParameterFrame::kSecondGob, "txtExtentSecondGob", "Label26",
     "Extent of second side gob", 5, UnitKind::kLength, "Extent of the second side gob", kZeroOrMore,
     kInvalidExtentSecondGob, nullptr, kGeneralForm, RefusalKind::kLogic},
    {&Project::AbutmentAngleSecondGob, ParameterFrame::kSecondGob, "txtAbutmentAngleSecondGob", "Label27",
     "Abutment angle for second side gob (deg)", 5, kNoUnit,
     "Angle of the overburden that bridges the second side gob", kAbutmentAngles, kInvalidAngleSecondGob,
     &kDataBaseAngle},
    {&Project::BarrierSecondGob, ParameterFrame::kSecondGob, "txtBarrierSecondGob", "Label28",
     "Barrier pillar width for second side gob", 5, UnitKind::kLength,
     "Width of the barrier pillar between panel and second side gob", kZeroOrMore, kInvalidBarrierSecondGob},
    {&Project::SlabcutSecondGob, ParameterFrame::kSecondGob, "txtSlabcutSecondGob", "Label29",
     "Depth of slab cut in barrier pillar", 5, UnitKind::kLength, kSlabMeaning, kSlabCuts,
     kInvalidSlabcutSecondGob},
    {&Project::WidthRowC, ParameterFrame::kBleeder, "txtWidthC", "lblwidRowC", "Width of row C", 5,
     UnitKind::kLength, "Width of the pillars of row C", kAboveZero, kInvalidWidthRowC},
    {&Project::WidthRowD, ParameterFrame::kBleeder, "txtWidthD", "lblwidRowD", "Width of row D", 5,
     UnitKind::kLength, "Width of the pillars of row D", kAboveZero, kInvalidWidthRowD},
});

inline constexpr const char* kEntriesCaption = "Number of entries";

// The boxes of the centers, all alike: names and caption are those of number 1 without the number.
inline constexpr NumberField kCenterField = {static_cast<double Project::*>(nullptr),
                                             ParameterFrame::kGeometry,
                                             "txtXcutCenters",
                                             "Label23",
                                             "P",
                                             5,
                                             UnitKind::kLength,
                                             "Distance from center to center of two neighbouring entries",
                                             kWiderThanEntry,
                                             "Invalid entry spacing"};

constexpr std::size_t IndexOf(NumberMember member) {
  std::size_t at = 0;
  while (kNumberFields.at(at).Member != member) {
    ++at;
  }
  return at;
}

// The place of the check box that has to be set for a number to count, or nothing.
constexpr std::optional<std::size_t> FlagThatShows(const NumberField& number) {
  for (std::size_t i = 0; i < kFlagFields.size(); ++i) {
    if (kFlagFields[i].Role == FlagRole::kShows && kFlagFields[i].Number == number.Member) {
      return i;
    }
  }
  return std::nullopt;
}

// The place of a box in its table, as FlagIndex has it.
struct NumberIndex {
  consteval NumberIndex(double Project::*member) : At(IndexOf(member)) {}
  consteval NumberIndex(float Project::*member) : At(IndexOf(member)) {}

  std::size_t At;
};
constexpr const NumberField& RowOf(NumberIndex field) {
  return kNumberFields[field.At];
}

}  // namespace korva
