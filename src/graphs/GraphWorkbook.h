// A parametric graph as a workbook of a spreadsheet program.
#pragma once

#include <string>

#include "charts/Chart.h"

namespace korva {

// The bytes of an .xlsx file with one sheet: for curve i columns 2 i - 1 and 2 i hold "X-coord" and the
// curve's label, below them X and Y of every point (no Y where there is no factor); a chart of them stands
// beside. If something is to be known of points or sweep, it stands in two columns in between. It is made in
// a private folder and read back whole. Run-time error 57 if it did not come out whole.
std::string GraphWorkbook(const Chart& chart);

}  // namespace korva
