// A parametric graph as a file: SVG, PDF or PNG, on white.
#pragma once

#include <string>

#include "graphs/Chart.h"
#include "pictures/PictureKind.h"

namespace korva {

// The bytes of the file. Run-time error 7 if there is no memory for it.
std::string ChartPicture(const Chart& chart, PictureKind kind);

}  // namespace korva
