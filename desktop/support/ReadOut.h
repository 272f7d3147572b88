// A box that only shows what was computed.
#pragma once

class QLineEdit;

namespace korva::desktop {

// Makes `box` look and act as a read-out: no frame, on the window's ground, text that can be selected and
// copied but not edited.
void MakeReadOnly(QLineEdit& box);

}  // namespace korva::desktop
