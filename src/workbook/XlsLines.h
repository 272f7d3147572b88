// What the program korva-xls answers: lines, each ended by LF, of fields with one blank between them.
//
//   korva-xls 1              the first line
//   n ROW COLUMN NUMBER      a number, in as many digits as bring back its bits
//   d ROW COLUMN NUMBER ISO  a date
//   t ROW COLUMN TEXT        a text
//   b ROW COLUMN 0|1         a boolean
//   e ROW COLUMN NAME        an error
//   v ROW COLUMN (blank)     a formula that is still to be calculated
//   s NAME                   a worksheet of the workbook, only if the one asked for is not there
//   end COUNT                the last line, with the number of lines between the two
//
// TEXT and NAME are UTF-8 with \n, \r and \\ for the characters that would break a line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "workbook/Reading.h"
#include "workbook/Sheet.h"

namespace korva {

inline constexpr std::string_view kXlsFirstLine = "korva-xls 1";

// Its exit status.
enum class XlsStatus {
  kDone = 0,
  kWrongCall = 2,
  kNoSheet = 3,
  kDamaged = 4,
  kLocked = 5,      // by a password
  kTooLarge = 6,    // for its memory or its most cells
  kNoWorkbook = 7,  // another kind of document
  kNotOpened = 8,
};

// The cells of an answer, or the names of the worksheets in it. Each ends the reading for an answer that is
// cut off or has a line of another form.
Sheet ParseXlsCells(std::string_view answer, const Reading& reading);
std::vector<std::string> ParseXlsSheetNames(std::string_view answer, const Reading& reading);

}  // namespace korva
