// Rows of the sheet "Cases", the historic cases' data base, as projects.
#pragma once

#include <string>
#include <string_view>

#include "core/Project.h"
#include "workbook/Sheet.h"

namespace korva {

inline constexpr std::string_view kCaseSheet = "Cases";
inline constexpr int kFirstCaseRow = 3;  // two rows of headings stand above
inline constexpr int kLastCaseRow = 647;

struct CaseProject {
  StoredProject Stored;
  std::string Number;  // the case number, three digits if it is a number
};

// Whether any of the columns of a case, 1 to 47, holds something in row `row`.
bool HoldsCase(const Sheet& sheet, int row);

// The case in row `row` (from 1) over the empty project `empty`. Numbers are taken as the sheet gives them,
// without a unit; an empty cell is 0, a text counts as its number, and nothing is validated. Run-time errors
// name sheet, row, column and what stands there: 13 for a cell that is no number or has no value, 6 for one
// beyond its range, 9 for more than kMaxEntries entries, 5 for an arch factor without a
// logarithm.
CaseProject ReadCase(const Sheet& sheet, int row, const StoredProject& empty);

}  // namespace korva
