#include "commands/PrivateRun.h"

#include <filesystem>

#include "files/PlatformFile.h"

namespace korva {

PrivateRun::PrivateRun(Korva& korva) : folder_(MakePrivateFolder()) {
  constexpr std::int16_t kUserTemporaryFolder = 1;
  korva.Places.SystemTempFolder = folder_ + "/";
  korva.Preferences.Options.iOptDir = kUserTemporaryFolder;
}

PrivateRun::~PrivateRun() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

std::unique_ptr<PrivateRun> PrivateFilesOf(Korva& korva) {
  return korva.ProjectCalc.CalcMode == kTraditionalModel ? nullptr : std::make_unique<PrivateRun>(korva);
}

}  // namespace korva
