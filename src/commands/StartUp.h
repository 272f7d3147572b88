// What happens before the first window: folders, settings, example projects.
#pragma once

#include <functional>
#include <string>

#include "core/Korva.h"
#include "files/SettingsFile.h"

namespace korva {

// Where this machine keeps things for its user; a folder that is unknown is empty.
struct MachineFolders {
  std::string AppPath;    // of the executable
  std::string Examples;   // shipped example projects
  std::string Docs;       // help file and documents of the program
  std::string Documents;  // made if it is missing
  std::string Desktop;
  std::string DataHome;    // the user's data folder, the last resort; made if it is missing
  std::string ConfigHome;  // the user's choices in other programs
  std::string StateHome;   // for running sessions and recovery copies
  std::string SystemTemp;
};

// Makes the user's folders below the documents folder, or what stands in for it; a folder that cannot be made
// is replaced by the user's data folder.
Folders MakeFolders(const MachineFolders& machine);

// Copies each example project that ProductFolder lacks, with CR LF line ends. What fails is left out.
void CopyExampleProjects(const Folders& places);

// The folder to be the current one, where files go whose name has no folder: the program's, or the data path
// where the program's may not be written, as that of an installed one.
std::string StartFolder(const Korva& korva);

// Everything up to the first window: `korva` has its folders and settings afterwards.
void StartUp(Korva& korva, const MachineFolders& machine, const std::function<std::string()>& bestFont);

}  // namespace korva
