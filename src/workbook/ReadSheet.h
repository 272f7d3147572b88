// Reading a worksheet off a workbook.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "workbook/Sheet.h"

namespace korva {

// A workbook of more bytes is refused.
inline constexpr std::uint64_t kLargestWorkbook = std::uint64_t{64} << 20;

// The cells of the worksheet `name`, in which ASCII letters of either size are one, of the file `workbook`,
// .xls or .xlsx by its content. Formulas count with the value that the file holds, but not
// in a workbook that asks to be calculated again when it is opened: those that scripts write hold zeros then.
// An empty text is no cell, be it the value of a formula or not. A number is a date if its style shows it as
// one and the days of the workbook reach it; less than one day is a time. The .xls workbooks are those since
// 1995.
//
// A file that asks for more time or memory than a workbook of that size needs is refused. `goOn` is called
// some ten times a second while reading takes longer; false ends it with the run-time error for a cancelled
// dialog, and an empty function always goes on. Run-time errors: those of opening a file, 9 for a missing
// worksheet, 57 for a file that is damaged or no workbook, or that is locked by a password, 7 for one that is
// too large, 53 if the program that reads .xls workbooks is not installed.
Sheet ReadSheet(const std::string& workbook, std::string_view name, const std::function<bool()>& goOn);

}  // namespace korva
