// Saving what a window draws.
#pragma once

#include <functional>
#include <string>

#include "core/Korva.h"
#include "core/Ports.h"
#include "pictures/PictureKind.h"

namespace korva {

// Asks for a file and writes the picture of its kind into it; `what` names it in the history. Run-time errors
// of drawing and writing.
void SavePicture(Korva& korva, Ports& ports, const std::string& what,
                 const std::function<std::string(PictureKind)>& draw);

}  // namespace korva
