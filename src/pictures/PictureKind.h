// The kinds of picture files.
#pragma once

#include <optional>
#include <string_view>

namespace korva {

enum class PictureKind { kSvg, kPdf, kPng };

// The kind that the extension of a file name asks for, in any letter case; nothing for another one.
std::optional<PictureKind> PictureKindOf(std::string_view fileName);

}  // namespace korva
