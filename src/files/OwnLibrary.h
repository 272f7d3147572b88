// Libraries of the programs' own that hold what is used seldom and takes long to load.
#pragma once

#include <string>

#include "files/DynamicLibrary.h"

namespace korva {

// The function `name` of the library `library`, which was built together with this program. Run-time error 53
// if that is not installed.
AnyFunction OwnLibraryFunction(const std::string& library, const char* name);

}  // namespace korva
