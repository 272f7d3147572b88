// The parts of an .xlsx workbook and how they lead to each other.
#pragma once

#include <string>
#include <string_view>

#include "workbook/DateFormat.h"
#include "workbook/ZipParts.h"

namespace korva {

// Names of parts; an optional one that the workbook does not have is empty.
struct WorkbookParts {
  std::string Sheet;
  std::string SharedStrings;
  std::string Styles;
  DateSystem Dates = DateSystem::k1900;
  bool IsCalculatedAnew = false;  // when it is opened: values of formulas do not count
};

// The parts that the worksheet `name` takes. Ends the reading for a zip that is no workbook, and for one
// without that worksheet.
WorkbookParts FindParts(ZipParts& zip, std::string_view name, const Reading& reading);

// The part that `target` means in the part `source`: "/xl/a.xml" and "../a.xml" both lead to "xl/a.xml" from
// "xl/worksheets/b.xml".
std::string PartOfTarget(std::string_view source, std::string_view target);

}  // namespace korva
