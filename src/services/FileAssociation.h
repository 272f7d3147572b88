// Which program the user's desktop opens project files with. How that is told to a desktop is the platform's
// own matter; nothing of it needs more rights than the user has.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace korva {

// The folders that programs keep a user's files in, with a separator at their end.
struct UserFolders {
  std::string Data;
  std::string Config;
};

// What stands for the program and for a project file, as SVG.
struct AssociationPictures {
  std::string Program;
  std::string Project;
};

// What may keep a desktop from seeing an association that was made.
struct AssociationCaveats {
  std::vector<std::string> MissingTools;  // not installed; they rebuild the desktop's lists
  std::vector<std::string> OtherLists;    // of this desktop alone, and naming another program first
};

// Makes files with `extension`, capital letters and digits, open with the program `exeName` in `folder`,
// which gets the file's name as its one argument. All of it or, with the run-time error of what failed,
// nothing; 53 if there is no such program.
AssociationCaveats AssociateFileType(const UserFolders& user, const std::string& folder,
                                     const std::string& exeName, const std::string& extension,
                                     const AssociationPictures& pictures);

// The extension that this user has associated last, if that can be taken back.
std::optional<std::string> AssociatedExtension(const UserFolders& user);

// Takes back what AssociateFileType has changed: what was there before is there again. Files that somebody
// has changed since stay and are returned. After a run-time error it can be done again.
std::vector<std::string> DissociateFileType(const UserFolders& user);

}  // namespace korva
