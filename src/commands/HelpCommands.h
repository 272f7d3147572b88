// The commands of the menu "Help" that open documents or show a message.
#pragma once

#include <string>
#include <string_view>

#include "core/Korva.h"
#include "core/Ports.h"

namespace korva {

// The full name of a document that comes with the program: beside the program, or else in its folder of
// documents. If neither has it, the name that it would have beside the program.
std::string DocumentPath(const Folders& places, std::string_view name);

// Says that the help file is not there or cannot be read.
void ShowHelpNotAvailable(Korva& korva, MessagePort& messages);

// "Help in PDF format...": hands the manual to the person's desktop.
void OpenManual(Korva& korva, Ports& ports);

// Whether that document of ResourceFiles is on this machine; `index` 0 to 8.
bool HasResource(const Folders& places, int index);

// The same as OpenManual for a document of ResourceFiles; run-time error 9 for an index that it does not
// have.
void OpenResource(Korva& korva, Ports& ports, int index);

// "About the Program...".
void ShowAbout(Korva& korva, MessagePort& messages);

}  // namespace korva
