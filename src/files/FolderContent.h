// What stands in a folder.
#pragma once

#include <string>
#include <vector>

namespace korva {

// Names without their folder, sorted, capital and small letters alike.
struct FolderContent {
  std::vector<std::string> Folders;
  std::vector<std::string> Files;  // all that is no folder, broken links and pipes too
};

// Run-time errors 70 and 76.
FolderContent ReadFolder(const std::string& folder);

}  // namespace korva
