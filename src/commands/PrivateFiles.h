// A folder of its own for the laminated runs of one call.
#pragma once

#include <memory>

#include "core/Korva.h"
#include "files/PrivateFolder.h"

namespace korva {

// Has the laminated runs of `korva` put their files into the folder that is given back, for as long as that
// lives, whatever the preferences say: two runs for projects of one name never see each other's files.
// Nothing if its working copy does not ask for the laminated model, which alone needs it. Run-time error of
// making the folder.
std::unique_ptr<PrivateFolder> PrivateFilesOf(Korva& korva);

}  // namespace korva
