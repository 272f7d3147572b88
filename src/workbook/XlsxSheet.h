// Reading a worksheet off the bytes of an .xlsx workbook.
#pragma once

#include <string_view>

#include "workbook/Reading.h"
#include "workbook/Sheet.h"

namespace korva {

// As ReadSheet. A cell whose style is missing is a plain number. Two values for one cell are damage: no
// program agrees with the other on which of them counts.
Sheet ReadXlsxSheet(std::string_view bytes, std::string_view name, const Reading& reading);

}  // namespace korva
