// Opening project files from the desktop with this program: asking for it, and taking it back.
#pragma once

#include "core/Korva.h"
#include "core/Ports.h"
#include "services/FileAssociation.h"

namespace korva {

// Asks, and then makes files with the extension of the settings open with this program. Only what has been
// done is said to be done.
void AskFileAssociation(Korva& korva, Ports& ports, const AssociationPictures& pictures);

// Whether there is an association that AskFileDissociation can take back.
bool HasFileAssociation(const Korva& korva);

void AskFileDissociation(Korva& korva, Ports& ports);

}  // namespace korva
