#include "input/CheckSettings.h"

#include <algorithm>

#include "core/Limits.h"
#include "core/Text.h"
#include "input/CheckFieldRange.h"

namespace korva {

namespace {

bool IsExtensionCharacter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

}  // namespace

std::string FolderText(const std::string& path) {
  std::string folder(Trimmed(path));
  if (folder.empty() || folder.back() != '/') {
    folder += '/';
  }
  return folder;
}

std::optional<SettingsRefusal> CheckSettings(const SettingsTexts& texts,
                                             const std::function<bool(const std::string&)>& folderExists) {
  using Kind = SettingsRefusal::Kind;
  if (Trimmed(texts.DataPath).empty() || !folderExists(FolderText(texts.DataPath))) {
    return SettingsRefusal{"Invalid Path for Data Files", Kind::kError, kDataPathBox};
  }
  if (auto fault =
          CheckFieldRange(texts.MaxDisplaySize, kLeastHistory, kGreatestHistory, kHistorySizeCaption)) {
    return SettingsRefusal{*fault, Kind::kRange, kHistorySizeBox};
  }
  if (!std::all_of(texts.FileExtension.begin(), texts.FileExtension.end(), IsExtensionCharacter)) {
    return SettingsRefusal{"Invalid character in file extension", Kind::kInvalidCharacter, kExtensionBox};
  }
  return std::nullopt;
}

}  // namespace korva
