// Pictures of windows on the clipboard.
#pragma once

#include "desktop/support/Session.h"

class QPixmap;

namespace korva::desktop {

// Puts a picture on the clipboard.
void CopyPicture(Session& session, const QPixmap& picture);

// Puts a picture of the form there and says so.
void CopyDialogToClipboard(Session& session, QWidget& form);

}  // namespace korva::desktop
