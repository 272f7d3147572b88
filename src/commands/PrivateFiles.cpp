#include "commands/PrivateFiles.h"

namespace korva {

std::unique_ptr<PrivateFolder> PrivateFilesOf(Korva& korva) {
  if (!UsesLaminated(korva.ProjectCalc.CalcMode)) {
    return nullptr;
  }
  auto folder = std::make_unique<PrivateFolder>();
  korva.Places.SystemTempFolder = folder->Name() + "/";
  korva.Preferences.Options.iOptDir = SolverFolder::kUserTemporary;
  return folder;
}

}  // namespace korva
