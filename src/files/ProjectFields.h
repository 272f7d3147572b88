// The lines that project files are made of, and how each is read. A file format is a table of them.
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <span>
#include <string_view>
#include <variant>

#include "core/Project.h"
#include "files/FieldCursor.h"

namespace korva {

// The one real number that is written like an integer, with blanks around it.
struct PaddedSingle {
  float Project::*member;
};
// XcutCenters 1 to NumberEntries - 1, a line each.
struct Centers {};

using FieldMember = std::variant<double Project::*, float Project::*, PaddedSingle, int Project::*,
                                 PanelLoading Project::*, OverburdenModel Project::*, Centers>;

struct FieldLine {
  const char* name;
  FieldMember member;
  int since = 50;                                       // the format from which the line exists
  int most = std::numeric_limits<std::int16_t>::max();  // a larger integer counts as this
};

using FieldLines = std::span<const FieldLine>;

// What the panel begins with in project files of all kinds, and what it ends with; in between each kind has
// lines of its own.
inline constexpr auto kGeometryLines = std::to_array<FieldLine>({
    {"EntryHeight", &Project::EntryHeight},
    {"DepthCover", &Project::DepthCover},
    {"XcutAngle", &Project::XcutAngle},
    {"EntryWidth", &Project::EntryWidth},
    {"XcutSpacing", &Project::XcutSpacing},
    {"NumberEntries", &Project::NumberEntries},
    {"XcutCenters", Centers{}},
    {"CoalStrength", &Project::CoalStrength},
    {"UnitWeight", &Project::UnitWeight},
    {"BreadthAMZ", &Project::BreadthAMZ},
    {"AMZAuto", &Project::AMZAuto},
});
inline constexpr auto kGobLines = std::to_array<FieldLine>({
    {"ExtentActiveGob", &Project::ExtentActiveGob},
    {"AbutmentAngleActiveGob", &Project::AbutmentAngleActiveGob},
    {"ExtentFirstGob", &Project::ExtentFirstGob},
    {"AbutmentAngleFirstGob", &Project::AbutmentAngleFirstGob},
    {"BarrierFirstGob", &Project::BarrierFirstGob},
    {"SlabcutFirstGob", &Project::SlabcutFirstGob},
    {"ExtentSecondGob", &Project::ExtentSecondGob},
    {"AbutmentAngleSecondGob", &Project::AbutmentAngleSecondGob},
    {"BarrierSecondGob", &Project::BarrierSecondGob},
    {"SlabcutSecondGob", &Project::SlabcutSecondGob},
    {"RowA", &Project::RowA, 53},
    {"RowB", &Project::RowB, 53},
    {"RowC", &Project::RowC, 53},
    {"RowD", &Project::RowD, 53},
    {"WidthRowC", &Project::WidthRowC, 53},
    {"WidthRowD", &Project::WidthRowD, 53},
});

inline constexpr std::string_view kDescriptionStart = "##StartDesc##";
inline constexpr std::string_view kDescriptionEnd = "##EndDesc##";

// Reads one line into `project`. A NumberEntries of 0 becomes 1; more than kMaxEntries of them is run-time
// error 9, otherwise the errors are those of the cursor.
void ReadFieldLine(FieldCursor& cursor, const FieldLine& line, Project& project);

// Reads units, title and description, with which every format begins after its magic. Units other than the
// two known become English. Errors are those of the cursor.
void ReadProjectHead(FieldCursor& cursor, StoredProject& project);

// Reads the block between the description's markers. Its first line is read whole, the others as fields:
// there a comma ends a line and is dropped, blanks in front are dropped, and a quote at the start delimits
// it.
void ReadDescription(FieldCursor& cursor, StoredProject& project);

}  // namespace korva
