#include "pictures/PictureKind.h"

#include <string>
#include <utility>

#include "core/Text.h"

namespace korva {

std::optional<PictureKind> PictureKindOf(std::string_view fileName) {
  const std::string lower = LowerCase(fileName);
  for (const auto& [extension, kind] :
       {std::pair{".svg", PictureKind::kSvg}, {".pdf", PictureKind::kPdf}, {".png", PictureKind::kPng}}) {
    if (lower.ends_with(extension)) {
      return kind;
    }
  }
  return std::nullopt;
}

}  // namespace korva
