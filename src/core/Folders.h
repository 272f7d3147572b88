// The folders and files that belong to the program and its user, all with a separator at their end.
#pragma once

#include <string>

namespace korva {

struct Folders {
  std::string AppPath;        // of the executable
  std::string Examples;       // example projects that are shipped; empty if there are none
  std::string Docs;           // help file and documents, as far as they do not lie in AppPath; may be empty
  std::string DataRoot;       // "MyFolvane" in the documents folder
  std::string TempRoot;       // "Temp" in it
  std::string ProductFolder;  // the program's own in DataRoot; where projects go unless told otherwise
  std::string ProductTempFolder;  // "Temp" in it
  std::string SystemTempFolder;
  std::string DataHome;     // where programs keep this user's files, the desktop's lists among them
  std::string ConfigHome;   // where they keep this user's choices
  std::string StateFolder;  // running sessions and recovery copies
  std::string IniFile;      // the settings file, a full name
};

}  // namespace korva
