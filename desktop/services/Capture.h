// Pictures of windows on the clipboard.
#pragma once

#include "desktop/support/Session.h"

namespace korva::desktop {

// Puts a picture of the form on the clipboard and says so.
void CopyDialogToClipboard(Session& session, QWidget& form);

}  // namespace korva::desktop
