// Shared libraries that are loaded by name while the program runs.
#pragma once

#include <string>

namespace korva {

// The file of the library `name` as this platform calls it, without a folder: the platform looks it up.
std::string LibraryFile(const std::string& name);

using AnyFunction = void (*)();

// The function `name` of the library in `file`, nothing if that has none. The library is loaded at the first
// call and stays. Run-time error 53 if it cannot be loaded.
AnyFunction LibraryFunction(const std::string& file, const char* name);

}  // namespace korva
