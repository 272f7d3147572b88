// Printed sheets as a PDF file in memory.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/PrintedSheet.h"

namespace korva {

// Run-time error 7 if there is no memory for it.
std::string PagesPdf(const std::vector<PrintedSheet>& sheets, PaperSize paper, std::string_view title);

}  // namespace korva
