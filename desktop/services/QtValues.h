// The font dialog.
#pragma once

#include <QWidget>

#include "core/Settings.h"

namespace korva::desktop {

// The font that settings describe.
QFont FontOf(const FontSettings& settings);

// Asks a person for a font and stores the choice. False, and nothing changes, after Cancel.
bool ChooseScreenFont(FontSettings& settings, QWidget& parent);

}  // namespace korva::desktop
