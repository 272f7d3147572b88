#include "commands/StartUp.h"

#include "commands/Examples.h"
#include "commands/SettingsCommands.h"
#include "core/FileNames.h"
#include "core/RuntimeError.h"
#include "core/Text.h"
#include "core/Version.h"
#include "files/FileReader.h"
#include "files/FileTree.h"
#include "files/PlatformFile.h"
#include "files/ProjectFile.h"
#include "files/SafeWriter.h"
#include "services/UpdateRules.h"

namespace korva {

namespace {

// The folder that holds all of the program's, without creating anything for the desktop.
std::string UserRoot(const MachineFolders& machine) {
  if (!machine.Documents.empty() && TryMakeFolderPath(machine.Documents)) {
    return WithSeparator(machine.Documents);
  }
  if (!machine.Desktop.empty() && FolderExists(machine.Desktop)) {
    return WithSeparator(machine.Desktop);
  }
  TryMakeFolderPath(machine.DataHome);
  return WithSeparator(machine.DataHome);
}

}  // namespace

Folders MakeFolders(const MachineFolders& machine) {
  const std::string root = UserRoot(machine);
  Folders places;
  places.AppPath = WithSeparator(machine.AppPath);
  places.Examples = WithSeparator(machine.Examples);
  places.Docs = WithSeparator(machine.Docs);
  places.DataHome = WithSeparator(machine.DataHome);
  places.ConfigHome = WithSeparator(machine.ConfigHome);
  places.StateFolder = WithSeparator(machine.StateHome);
  places.SystemTempFolder = WithSeparator(machine.SystemTemp);
  places.DataRoot = root + "MyFolvane/";
  places.TempRoot = places.DataRoot + "Temp/";
  places.ProductFolder = places.DataRoot + std::string(ExeName) + "/";
  places.ProductTempFolder = places.ProductFolder + "Temp/";
  for (std::string* folder :
       {&places.DataRoot, &places.TempRoot, &places.ProductFolder, &places.ProductTempFolder}) {
    if (!TryMakeFolderPath(*folder)) {
      *folder = WithSeparator(machine.DataHome);
    }
  }
  places.IniFile = places.DataRoot + std::string(ExeName) + ".INI";
  return places;
}

void CopyExampleProjects(const Folders& places) {
  for (const std::string& name : ExampleNames(places)) {
    const std::string target = places.ProductFolder + name;
    try {
      if (!StateOfFile(target).exists) {
        WriteFileSafely(target, WithFileLineEnds(ReadWholeFile(places.Examples + name, kLargestProjectFile)));
      }
    } catch (const RuntimeError&) {
      continue;  // a missing example keeps nobody from working
    }
  }
}

std::string StartFolder(const Korva& korva) {
  try {
    RequireWritable(korva.Places.AppPath);
    return korva.Places.AppPath;
  } catch (const RuntimeError&) {
    return FolderExists(korva.Preferences.DataPath) ? korva.Preferences.DataPath : korva.Places.ProductFolder;
  }
}

void StartUp(Korva& korva, const MachineFolders& machine, const std::function<std::string()>& bestFont) {
  korva.Places = MakeFolders(machine);
  korva.Updates = BuiltInUpdateSource();
  LoadSettings(korva, {korva.Places.ProductFolder, bestFont});
  if (korva.Preferences.CopyExampleFiles) {
    CopyExampleProjects(korva.Places);
  }
}

}  // namespace korva
