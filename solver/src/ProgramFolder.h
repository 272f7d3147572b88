// Where the running program lies.
#pragma once

#include <filesystem>

namespace korva::laminated {

// The folder of the running program's file, empty if the system does not tell.
std::filesystem::path ProgramFolder();

}  // namespace korva::laminated
