// The few colours beside the palette's, each with a light and a dark value.
#pragma once

#include <QColor>
#include <QPalette>

namespace korva::desktop {

// Whether windows of this palette are dark.
bool IsDark(const QPalette& palette);

QColor AccentColour(const QPalette& palette);
QColor RefusedColour(const QPalette& palette);

// The palette of the theme that the person asks for on the command line, "light" or "dark".
QPalette ThemePalette(bool dark);

}  // namespace korva::desktop
