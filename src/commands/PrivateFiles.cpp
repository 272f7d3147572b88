#include "commands/PrivateFiles.h"

namespace korva {

std::unique_ptr<PrivateFolder> PrivateFilesOf(Korva& korva) {
  if (korva.ProjectCalc.CalcMode == kTraditionalModel) {
    return nullptr;
  }
  constexpr std::int16_t kUserTemporaryFolder = 1;
  auto folder = std::make_unique<PrivateFolder>();
  korva.Places.SystemTempFolder = folder->Name() + "/";
  korva.Preferences.Options.iOptDir = kUserTemporaryFolder;
  return folder;
}

}  // namespace korva
