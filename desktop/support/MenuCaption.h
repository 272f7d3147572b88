// A name from outside as an item of a menu.
#pragma once

#include <QFont>
#include <QString>

namespace korva::desktop {

// `name` with its ampersands shown, elided in the middle if it is so long that the menu would cover the
// screen.
QString MenuCaption(const QString& name, const QFont& font);

}  // namespace korva::desktop
