// Reading a worksheet off an .xls workbook, by a program of its own that may fail without harm.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "workbook/Reading.h"
#include "workbook/Sheet.h"

namespace korva {

struct XlsReader {
  std::string Program;
  std::chrono::milliseconds Limit{30'000};  // on the clock
};

// The program korva-xls that belongs to the running one. Run-time error 53 if it is nowhere.
XlsReader FindXlsReader();

// As ReadSheet. A cell that is shown as a date is one, be it a formula or not, as in an .xlsx workbook.
Sheet ReadXlsSheet(const std::string& workbook, std::string_view name, const XlsReader& reader,
                   const Reading& reading);

}  // namespace korva
