// Picture files in memory: SVG, PDF or PNG, on white, painted with cairo.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

typedef struct _cairo cairo_t;

namespace korva {

enum class PictureKind { kSvg, kPdf, kPng };

// The kind that the extension of a file name asks for, in any letter case; nothing for another one.
std::optional<PictureKind> PictureKindOf(std::string_view fileName);

// In points.
struct PictureSize {
  double Width = 0;
  double Height = 0;
};

// The bytes of a picture that `paint` draws in points from the upper left corner. Run-time error 7 if there
// is no memory for it.
std::string PictureBytes(PictureKind kind, PictureSize size, const std::function<void(cairo_t*)>& paint);

// The same for a PDF of `pages` pages, each drawn by a call with its number from 0 on.
std::string PdfBytes(PictureSize size, int pages, std::string_view title,
                     const std::function<void(cairo_t*, int page)>& paint);

}  // namespace korva
