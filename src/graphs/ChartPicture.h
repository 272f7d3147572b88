// A parametric graph as a file: SVG, PDF or PNG, on white.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "graphs/Chart.h"

namespace korva {

enum class PictureKind { kSvg, kPdf, kPng };

// The kind that the extension of a file name asks for, in any letter case; nothing for another one.
std::optional<PictureKind> PictureKindOf(std::string_view fileName);

// The bytes of the file. Run-time error 7 if there is no memory for it.
std::string ChartPicture(const Chart& chart, PictureKind kind);

}  // namespace korva
