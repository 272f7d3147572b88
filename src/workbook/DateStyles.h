// The cell styles of an .xlsx workbook, as far as they show dates.
#pragma once

#include <string>
#include <vector>

#include "workbook/ZipParts.h"

namespace korva {

// For each cell style, by its number, whether it shows a number as a date or time; none for an empty part
// name.
std::vector<bool> ReadDateStyles(ZipParts& zip, const std::string& part, const Reading& reading);

}  // namespace korva
