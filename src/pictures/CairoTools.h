// What the painters of files share.
#pragma once

#include <cairo.h>

#include "core/Picture.h"

namespace korva {

inline void SetColour(cairo_t* cairo, Rgb rgb, double alpha = 1) {
  const auto part = [rgb](unsigned shift) { return static_cast<double>((rgb >> shift) & 0xff) / 255; };
  cairo_set_source_rgba(cairo, part(16), part(8), part(0), alpha);
}

}  // namespace korva
