// Opening documents with the program that the person's desktop has for them.
#pragma once

#include <QUrl>
#include <chrono>

namespace korva::desktop {

// Has the desktop open a file or a web page; false if it has no program for it. Waits for the desktop's
// answer while the windows stay alive; one that takes longer than `patience` is a yes.
bool OpenOnDesktop(const QUrl& what, std::chrono::milliseconds patience = std::chrono::seconds(3));

}  // namespace korva::desktop
