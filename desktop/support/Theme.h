// The few colours beside the palette's, each with a light and a dark value.
#pragma once

#include <QColor>
#include <QPalette>

namespace korva::desktop {

// Whether windows of this palette are dark.
bool IsDark(const QPalette& palette);

QColor AccentColour(const QPalette& palette);
QColor RefusedColour(const QPalette& palette);

// A light and a dark palette of the program's own: paper takes the light one in either theme of the desktop.
QPalette ThemePalette(bool dark);

}  // namespace korva::desktop
