#include "input/CheckSettings.h"

#include <algorithm>

#include "core/FileNames.h"
#include "core/Limits.h"
#include "core/Text.h"
#include "input/CheckFieldRange.h"

namespace korva {

bool IsExtensionText(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); });
}

std::string FolderText(const std::string& path) {
  return WithSeparator(Trimmed(path));
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
  if (!IsExtensionText(texts.FileExtension)) {
    return SettingsRefusal{"Invalid character in file extension", Kind::kInvalidCharacter, kExtensionBox};
  }
  return std::nullopt;
}

}  // namespace korva
