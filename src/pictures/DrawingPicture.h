// A drawing as a file: SVG, PDF or PNG, in the look that holds in black and white, too.
#pragma once

#include <string>

#include "core/Drawing.h"
#include "pictures/PictureKind.h"

namespace korva {

// The bytes of the file. Texts are `textHeight` high, in world units. Run-time error 7 if there is no memory
// for it.
std::string DrawingPicture(const Drawing& drawing, double textHeight, PictureKind kind);

}  // namespace korva
