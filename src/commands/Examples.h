// The example projects that the program comes with.
#pragma once

#include <string>
#include <vector>

#include "core/Folders.h"

namespace korva {

struct ExampleProject {
  std::string Title;  // the file's name where the project has none or cannot be read
  std::string File;   // the person's own copy where there is one, which can be saved
};

// The names of their files, sorted. None if there are none or their folder cannot be read.
std::vector<std::string> ExampleNames(const Folders& places);

// In the order of their names.
std::vector<ExampleProject> ExampleProjects(const Folders& places);

}  // namespace korva
