// A parametric graph as a workbook of a spreadsheet program.
#pragma once

#include <string>

#include "graphs/Chart.h"

namespace korva {

// The bytes of an .xlsx file with one sheet: for curve i columns 2 i - 1 and 2 i hold "X-coord" and the
// curve's label, below them X and Y of every point; a chart of them stands beside. It is made in a private
// folder and read back whole. Run-time error 57 if it did not come out whole.
std::string GraphWorkbook(const Chart& chart);

}  // namespace korva
