// Paints picture records on the screen, into pictures and on paper.
#pragma once

#include <QPainter>

#include "core/Picture.h"

namespace korva::desktop {

// Paints from the painter's origin on, a pixel of the records as a unit of the painter.
void PaintPicture(QPainter& painter, const Picture& picture);

}  // namespace korva::desktop
