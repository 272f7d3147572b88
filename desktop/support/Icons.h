// The program's own pictures.
#pragma once

#include <QIcon>
#include <QPalette>

namespace korva::desktop {

// Makes the pictures known; called once, before the first is asked for.
void InitResources();

// The program's own.
QIcon ProgramIcon();

// The toolbar picture of that name in the colours of `palette`, with a paler one for disabled buttons.
QIcon ThemedIcon(const QString& name, const QPalette& palette);

}  // namespace korva::desktop
