// The lines that project files are made of, and how each is read. A file format is a table of them.
#pragma once

#include <cstdint>
#include <limits>
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

inline constexpr std::string_view kDescriptionStart = "##StartDesc##";
inline constexpr std::string_view kDescriptionEnd = "##EndDesc##";

// Reads one line into `project`. A NumberEntries of 0 becomes 1; more than kMaxEntries of them is run-time
// error 9, otherwise the errors are those of the cursor.
void ReadFieldLine(FieldCursor& cursor, const FieldLine& line, Project& project);

// Reads units, title and description, with which every format begins behind its magic. Units other than the
// two known become English. Errors are those of the cursor.
void ReadProjectHead(FieldCursor& cursor, StoredProject& project);

// Reads the block between the description's markers. Its first line is read whole, the others as fields:
// there a comma ends a line and is dropped, blanks in front are dropped, and a quote at the start delimits
// it.
void ReadDescription(FieldCursor& cursor, StoredProject& project);

}  // namespace korva
