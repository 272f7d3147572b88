// Picture files in memory: SVG, PDF or PNG, on white, painted with cairo.
#pragma once

#include <cairo.h>

#include <functional>
#include <string>
#include <string_view>

#include "core/Picture.h"
#include "pictures/PictureKind.h"

namespace korva {

// The bytes of a picture of that size in points that `paint` draws in points from the upper left corner.
// Run-time error 7 if there is no memory for it.
std::string PictureBytes(PictureKind kind, PictureSize size, const std::function<void(cairo_t*)>& paint);

// The same for a PDF of `pages` pages, each drawn by a call with its number from 0 on.
std::string PdfBytes(PictureSize size, int pages, std::string_view title,
                     const std::function<void(cairo_t*, int page)>& paint);

}  // namespace korva
