// Picture records as a file: SVG, PDF or PNG; a pixel of the records is a point of the file.
#pragma once

#include <string>

#include "core/Picture.h"
#include "pictures/PictureKind.h"

namespace korva {

// The bytes of the file. Run-time error 7 if there is no memory for it.
std::string PictureBytes(PictureKind kind, const Picture& picture);

// The width of a text in the font of all pictures, both in pixels: the one measure for screen, file and
// paper.
double TextWidth(const std::string& text, double pixels);

}  // namespace korva
