// The schematic pictures of a panel in plan, one for each loading condition and choice of rows left.
#pragma once

#include <string>

#include "core/Drawing.h"
#include "plan/PanelPicture.h"

namespace korva {

// The panel in plan, the first side at the left, the retreat from top to bottom. Lengths are not to scale;
// all pictures have the same extent. A barrier is drawn with a slab cut where no row is left beside it.
Drawing PanelSchematic(const PanelPicture& picture);

// What the picture shows in words: "One active section and one side gob, rows A and C left".
std::string PanelSchematicText(const PanelPicture& picture);

}  // namespace korva
